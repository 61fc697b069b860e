#pragma once

#include "hvimage/HVSDataTypes.h"
#include "hvimage/hvimage_global.h"

#include <QtCore/qglobal.h>
#include <memory>

// A row of values. Nothing throws: what cannot be allocated is reported by false.
class HVIMAGE_EXPORT CIL1DData
{
public:
    CIL1DData();
    virtual ~CIL1DData();

    // Takes a copy of `count` values of the given type. False for null, a count below 1, an unknown type or a
    // lack of memory; the former values then stay.
    bool initWithArray(void const* values, long count, HVSDataTypes type);

    // Lowest and highest value; values that are no numbers do not count. 0 without values.
    double Min() const;
    double Max() const;

    // Copies the values to `out` as values of the given type; integer types take the nearest value that they
    // can hold. `out` has room for all of them. False for null, an unknown type and without values.
    bool getData(HVSDataTypes type, void* out) const;

    // Position, counted in values, at which the row reaches `level` for the first time, interpolated linearly
    // between the two neighbours. The number of values when it never does.
    double findLevel(float level) const;

protected:
    class Private;
    std::unique_ptr<Private> d;

private:
    Q_DISABLE_COPY(CIL1DData)
};
