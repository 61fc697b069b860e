#include "hvapi/values/obtainEquationVariablesForPlane.h"

#include "hvapi/values/Vec3f.h"

void obtainEquationVariablesForPlane(Vec3f p1, Vec3f p2, Vec3f p3, double& a, double& b, double& c, double& d)
{
    Vec3f const u = p2 - p1;
    Vec3f const v = p3 - p1;
    a = u.y() * v.z() - u.z() * v.y();
    b = u.z() * v.x() - u.x() * v.z();
    c = u.x() * v.y() - u.y() * v.x();
    d = -(a * p1.x() + b * p1.y() + c * p1.z());
}
