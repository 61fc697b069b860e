#pragma once

#include "hvapi/values/Vec3f.h"
#include "hvapi/values/matrix.h"

#include <QString>
#include <array>

/// How far the volume of a sequence has been brought into register with the sequence's photographs.
struct SRegistrationState
{
    bool bRegistered = false;                  ///< a registration was found
    matrix registrationMatrix;                 ///< it, identity without one
    std::array<Vec3f, 8> registrationCorners;  ///< corners of the box that it was found for, in millimetres
    QString registrationMessage;               ///< what the user is told of it; null: nothing yet

    SRegistrationState() { registrationMatrix.loadIdentity(); }
};
