#include "lib/hvapi/scene/CursorReadout.h"

#include "lib/hvapi/scene/C3DViewPrivate.h"
#include "lib/hvapi/scene/ScenePick.h"

#include <QVariant>
#include <cmath>

namespace hvscene {

namespace {

constexpr int pauseMs = 40;
constexpr int longestName = 40;

std::optional<double> numberProperty(const QObject& object, const char* name)
{
    bool isNumber = false;
    const double value = object.property(name).toDouble(&isNumber);
    return isNumber && std::isfinite(value) ? std::make_optional(value) : std::nullopt;
}

}  // namespace

ValueUnit unitOf(const C3DVolumeData& volume)
{
    const QString name = volume.property(unitNameProperty).toString().left(longestName);
    const auto lowest = numberProperty(volume, unitLowestProperty);
    const auto highest = numberProperty(volume, unitHighestProperty);
    if (!name.isEmpty() && lowest && highest) return {name, *lowest, *highest};
    return {QStringLiteral("Counts"), static_cast<double>(volume.getMin()),
            static_cast<double>(volume.getMax())};
}

CursorReadout::CursorReadout(C3DScene& scene)
    : m_scene(scene)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseMs);
    connect(&m_pause, &QTimer::timeout, this, &CursorReadout::look);
}

void CursorReadout::moveTo(QPoint mouse)
{
    m_mouse = mouse;
    if (!m_pause.isActive()) m_pause.start();
}

void CursorReadout::leave()
{
    if (!m_mouse) return;
    m_mouse.reset();
    m_pause.stop();
    emit told(QString());
}

void CursorReadout::sceneChanged()
{
    if (m_mouse && !m_pause.isActive()) m_pause.start();
}

void CursorReadout::look()
{
    if (!m_mouse) return;
    const Pixel mouse{static_cast<double>(m_mouse->x()), static_cast<double>(m_mouse->y())};
    const PickedPoint picked = pickPoint(m_scene, m_scene.hostSide().projection(), mouse);
    // Also when it is the text of before: who shows it may have shown something else meanwhile.
    emit told(picked.volume ? readoutText(picked.place, picked.value, unitOf(*picked.volume)) : QString());
}

}  // namespace hvscene
