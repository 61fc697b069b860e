#include "hvapi/sequence/CDicomImporter.h"

namespace {

QString value(QMap<QString, SGroupElemInfo> const& attributes, char const* key)
{
    return attributes.value(QLatin1String(key)).value.trimmed();
}

bool isNative(QString const& implementation)
{
    return implementation.contains(QLatin1String("Halvane")) ||
           implementation.contains(QLatin1String("HVS3D"));
}

}  // namespace

CDicomImporter::CDicomImporter() = default;

CDicomImporter::~CDicomImporter() = default;

bool CDicomImporter::isDicom(bool bNativeOnly)
{
    if (loadEntireDicomInfo() != eStatusSuccess) return false;
    if (!bNativeOnly) return true;
    if (!isNative(getImplementationVersionName()) || getTotalFrames() != 1) return false;
    QMap<QString, SGroupElemInfo> const attributes = getGroupElementInfo();
    return value(attributes, "0008, 0016") == QLatin1String("1.2.840.10008.5.1.4.1.1.7") &&
           value(attributes, "0029, 0010") == QLatin1String("HALVANE PLANAR IMAGE");
}
