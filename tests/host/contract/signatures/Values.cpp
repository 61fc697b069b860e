#include "Signatures.h"
#include "hvapi/values/Coord2d.h"
#include "hvapi/values/Coord3d.h"
#include "hvapi/values/ETOOLPALETTE_PLUGIN_STATUS_MODIFIER.h"
#include "hvapi/values/S3DControls.h"
#include "hvapi/values/Vec3f.h"
#include "hvapi/values/_tagAxis_Orientation.h"
#include "hvapi/values/downloaded_save_data.h"
#include "hvapi/values/matrix.h"
#include "hvapi/values/obtainEquationVariablesForPlane.h"
#include "hvapi/values/sCropBoxOffset.h"
#include "hvapi/values/tag_edisplayunit.h"
#include "hvapi/values/tag_eimagetype.h"
#include "hvapi/values/tag_escaleunit.h"
#include "hvapi/values/unitquaternion.h"

GIVES(double&, some<Vec3f&>().x());
GIVES(double&, some<Vec3f&>().y());
GIVES(double&, some<Vec3f&>().z());
GIVES(double&, some<Vec3f&>()[some<int const&>()]);
GIVES(void, some<Vec3f&>().set(some<double>(), some<double>(), some<double>()));
GIVES(double, some<Vec3f const&>().length());
GIVES(Vec3f, Vec3f(some<double>(), some<double>(), some<double>()));
GIVES(Vec3f, Vec3f(some<Vec3f const&>()));
GIVES(double, some<Vec3f>() * some<Vec3f>());
GIVES(Vec3f, some<Vec3f>() + some<Vec3f>());
GIVES(Vec3f, some<Vec3f>() - some<Vec3f>());
GIVES(Vec3f, some<Vec3f>() / some<double>());
GIVES(Vec3f&, some<Vec3f&>() *= some<double>());
GIVES(Vec3f, some<matrix const&>() * some<Vec3f const&>());
GIVES(const Vec3f, X_AXIS);
GIVES(const Vec3f, Y_AXIS);
GIVES(const Vec3f, Z_AXIS);

GIVES(double, Coord3d().x);
GIVES(double, Coord2d().y);

GIVES(matrix, matrix(some<double const*>(), some<matrix::ordermode>()));
GIVES(void, some<matrix&>().loadIdentity());
GIVES(matrix, some<matrix const&>().inverse());
GIVES(double&, some<matrix&>()(some<int const&>(), some<int const&>()));
GIVES(matrix&, some<matrix&>() *= some<matrix const&>());
GIVES(matrix&, some<matrix&>() = some<matrix const&>());
GIVES(matrix, some<matrix const&>() * some<matrix const&>());
GIVES(double*, static_cast<double*>(some<matrix&>()));
GIVES(double const*, static_cast<double const*>(some<matrix const&>()));

GIVES(unitquaternion, unitquaternion(some<double const&>(), some<Vec3f const&>()));
GIVES(unitquaternion&, some<unitquaternion&>() *= some<unitquaternion const&>());
GIVES(matrix, some<unitquaternion const&>().getRotMatrix());

static_assert(sizeof(sCropBoxOffset) == 8 * sizeof(Vec3f));
static_assert(sizeof(_tagAxis_Orientation) == 12 && std::is_signed_v<decltype(_tagAxis_Orientation::x)>);
static_assert(std::is_class_v<S3DControls>);
static_assert(std::is_pointer_v<downloaded_save_data*>);

static_assert(ETOOLPALETTE_SHOW_VOLUME == 0 && ETOOLPALETTE_SHOW_MAXIMUM_INTENSITY == 5);
static_assert(IMAGETYPE_PHOTOGRAPH == 0 && IMAGETYPE_LUMINESCENT == 1 && IMAGETYPE_XRAY == 12);
static_assert(SCALEUNIT_PIXELS == 1 && SCALEUNIT_MM == 2);
static_assert(std::is_enum_v<tag_edisplayunit>);

GIVES(void, obtainEquationVariablesForPlane(some<Vec3f>(), some<Vec3f>(), some<Vec3f>(), some<double&>(),
                                            some<double&>(), some<double&>(), some<double&>()));
