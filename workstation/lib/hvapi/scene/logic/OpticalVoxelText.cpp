#include "lib/hvapi/scene/logic/OpticalVoxelText.h"

#include "lib/hvparser/logic/KeyedText.h"

#include <algorithm>
#include <cmath>

namespace hvscene {

namespace {

using hvparser::KeyedSection;

constexpr int mostComplaints = 8;
// Beside the voxels a text has a few lines of its own.
constexpr int mostLines = mostOpticalVoxels + 1000;

const KeyedSection* findSection(const hvparser::KeyedText& text, const QString& name)
{
    for (const KeyedSection& section : text.sections)
        if (section.name.compare(name, Qt::CaseInsensitive) == 0) return &section;
    return nullptr;
}

QString valueOf(const KeyedSection& section, const char* key)
{
    const hvparser::KeyedLine* line = findKey(section, QString::fromLatin1(key));
    return line ? line->value : QString();
}

/// The numbers of a text with blanks between them; nothing when one of its words is no finite number. The
/// point is a point in every locale.
std::optional<std::vector<double>> numbers(const QString& text)
{
    std::vector<double> values;
    const QString words = text.simplified();
    const auto parts = words.splitRef(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QStringRef& word : parts) {
        bool isNumber = false;
        const double value = word.toDouble(&isNumber);
        if (!isNumber || !std::isfinite(value)) return std::nullopt;
        values.push_back(value);
    }
    return values;
}

bool isSize(Vec3 size)
{
    const auto isEdge = [](double edge) { return edge > 0.0 && edge <= farthestVoxel; };
    return isEdge(size.x) && isEdge(size.y) && isEdge(size.z);
}

bool isPlace(Vec3 place)
{
    const auto isNear = [](double c) { return std::fabs(c) <= farthestVoxel; };
    return isNear(place.x) && isNear(place.y) && isNear(place.z);
}

std::optional<float> asIntensity(double value)
{
    const auto intensity = static_cast<float>(value);
    return std::isfinite(intensity) ? std::make_optional(intensity) : std::nullopt;
}

/// Why a line of numbers makes no voxel; an empty text when it does.
QString takeVoxel(const QString& value, const std::optional<Vec3>& common, OpticalVoxel& voxel)
{
    const auto n = numbers(value);
    if (!n || (n->size() != 4 && n->size() != 7)) return QStringLiteral("it is not 4 or 7 numbers");
    voxel.center = {(*n)[0], (*n)[1], (*n)[2]};
    if (!isPlace(voxel.center)) return QStringLiteral("it lies too far away");
    const auto intensity = asIntensity((*n)[3]);
    if (!intensity) return QStringLiteral("its intensity is too large");
    voxel.intensity = *intensity;
    if (n->size() == 7) {
        voxel.size = {(*n)[4], (*n)[5], (*n)[6]};
    } else if (common) {
        voxel.size = *common;
    } else {
        return QStringLiteral("it has no size, and there is no 'Voxel Size'");
    }
    return isSize(voxel.size) ? QString() : QStringLiteral("its size is not above 0, or too large");
}

OpticalVoxelText refused(const QString& why)
{
    OpticalVoxelText text;
    text.refusal = why;
    return text;
}

}  // namespace

OpticalVoxelText parseOpticalVoxels(const QByteArray& bytes)
{
    if (bytes.size() > longestVoxelText)
        return refused(QStringLiteral("it is longer than %1 MiB").arg(longestVoxelText >> 20));
    if (bytes.count('\n') > mostLines)
        return refused(QStringLiteral("it has more than %1 lines").arg(mostLines));
    // A number that was cut in two would still be one.
    if (!bytes.endsWith('\n'))
        return refused(QStringLiteral("its last line has no end; it is empty or was cut short"));
    const hvparser::KeyedText keyed = hvparser::parseKeyedText(bytes);
    const KeyedSection* head = findSection(keyed, QStringLiteral("Optical Voxels"));
    const KeyedSection* list = findSection(keyed, QStringLiteral("Voxels"));
    if (!head || !list) return refused(QStringLiteral("it has no section 'Optical Voxels' or 'Voxels'"));

    const QString version = valueOf(*head, "Format Version");
    if (version != QLatin1String("1"))
        return refused(QStringLiteral("its format has the version '%1', not 1").arg(version.left(40)));
    bool isCount = false;
    const int count = valueOf(*head, "Count").toInt(&isCount);
    if (!isCount || count < 1 || count > mostOpticalVoxels)
        return refused(QStringLiteral("its 'Count' is no number from 1 to %1").arg(mostOpticalVoxels));

    OpticalVoxelText text;
    OpticalVoxels optical;
    optical.unit = valueOf(*head, "Unit").left(40);
    std::optional<Vec3> common;
    if (const QString size = valueOf(*head, "Voxel Size"); !size.isEmpty()) {
        const auto n = numbers(size);
        if (!n || n->size() != 3 || !isSize({(*n)[0], (*n)[1], (*n)[2]}))
            return refused(QStringLiteral("its 'Voxel Size' is not 3 lengths above 0"));
        common = Vec3{(*n)[0], (*n)[1], (*n)[2]};
    }
    if (const QString threshold = valueOf(*head, "Default Threshold"); !threshold.isEmpty()) {
        const auto n = numbers(threshold);
        if (!n || n->size() != 1 || !asIntensity(n->front()))
            return refused(QStringLiteral("its 'Default Threshold' is no number"));
        optical.threshold = n->front();
    }

    int lines = 0;
    for (const hvparser::KeyedLine& line : list->lines) {
        if (line.key.isEmpty()) continue;
        if (++lines > count) break;
        OpticalVoxel voxel;
        const QString why = takeVoxel(line.value, common, voxel);
        if (why.isEmpty()) {
            optical.voxels.push_back(voxel);
            continue;
        }
        ++text.leftOut;
        if (text.complaints.size() < mostComplaints)
            text.complaints << QStringLiteral("'%1': %2").arg(line.key.left(40), why);
    }
    // A part of a reconstruction would show the light in the wrong place.
    if (lines < count)
        text.refusal = QStringLiteral("it has %1 of its %2 voxels; it was cut short").arg(lines).arg(count);
    else if (lines > count)
        text.refusal = QStringLiteral("it has more voxels than its 'Count' of %1").arg(count);
    else if (optical.voxels.empty())
        text.refusal = QStringLiteral("none of its voxels makes sense");
    else
        text.optical = std::move(optical);
    return text;
}

}  // namespace hvscene
