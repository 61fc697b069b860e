#pragma once

#include <QString>

// One descriptive entry of a data file. For DICOM it is an attribute, kept under a key of the form "0028,
// 0008": group, comma, blank, element, four hexadecimal digits each.
struct SGroupElemInfo
{
    QString group;
    QString element;
    QString vr;  // value representation; readers leave it empty
    QString name;
    QString value;
};
