#include "lib/hvapi/windows/ScenePage.h"

#include "hvapi/scene/C3DScene.h"
#include "hvapi/scene/C3DSlice.h"
#include "lib/hvapi/scene/ViewControl.h"
#include "lib/hvapi/windows/ViewIcons.h"

#include <QAction>
#include <QKeySequence>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

struct Preset
{
    char const* name;
    char const* text;
    char const* tip;
    ViewIcon icon;
    hvscene::ViewPreset view;
};

using hvscene::ViewPreset;

constexpr Preset presets[] = {
    {"m_pViewFront", QT_TRANSLATE_NOOP("ScenePage", "Front"),
     QT_TRANSLATE_NOOP("ScenePage", "Front view: looks along z, y up"), ViewIcon::Front, ViewPreset::Front},
    {"m_pViewSide", QT_TRANSLATE_NOOP("ScenePage", "Side"),
     QT_TRANSLATE_NOOP("ScenePage", "Side view: looks along x, y up"), ViewIcon::Side, ViewPreset::Side},
    {"m_pViewTop", QT_TRANSLATE_NOOP("ScenePage", "Top"),
     QT_TRANSLATE_NOOP("ScenePage", "Top view: looks along y"), ViewIcon::Top, ViewPreset::Top},
    {"m_pViewIso", QT_TRANSLATE_NOOP("ScenePage", "Iso"),
     QT_TRANSLATE_NOOP("ScenePage", "Isometric view: from the right, above and in front"), ViewIcon::Iso,
     ViewPreset::Iso},
};

struct Plane
{
    char const* name;
    char const* text;
    char const* tip;
    ViewIcon icon;
};

constexpr Plane planes[3] = {
    {"m_pShowSliceX", QT_TRANSLATE_NOOP("ScenePage", "X Slice"),
     QT_TRANSLATE_NOOP("ScenePage", "Slice across x; drag it by its frame"), ViewIcon::SliceX},
    {"m_pShowSliceY", QT_TRANSLATE_NOOP("ScenePage", "Y Slice"),
     QT_TRANSLATE_NOOP("ScenePage", "Slice across y; drag it by its frame"), ViewIcon::SliceY},
    {"m_pShowSliceZ", QT_TRANSLATE_NOOP("ScenePage", "Z Slice"),
     QT_TRANSLATE_NOOP("ScenePage", "Slice across z; drag it by its frame"), ViewIcon::SliceZ},
};

QAction* makeAction(QToolBar& bar, char const* name, QString const& text, QString const& tip, ViewIcon icon)
{
    auto* action = bar.addAction(viewIcon(icon, bar.palette()), text);
    action->setObjectName(name);
    action->setToolTip(tip);
    action->setStatusTip(tip);
    return action;
}

}  // namespace

ScenePage::ScenePage(C3DSGManager* graph, QWidget* parent)
    : QWidget(parent)
    , m_scene(new C3DScene(graph))
{
    m_scene->setMinimumSize(160, 120);
    m_scene->setFocusPolicy(Qt::StrongFocus);

    auto* bar = new QToolBar;
    bar->setObjectName("m_pSceneToolBar");
    bar->setIconSize({20, 20});
    bar->setMovable(false);
    for (auto const& preset : presets) {
        auto* action = makeAction(*bar, preset.name, tr(preset.text), tr(preset.tip), preset.icon);
        connect(action, &QAction::triggered, this,
                [this, view = preset.view] { ViewControl(*m_scene).setPreset(view); });
    }
    auto* reset = makeAction(*bar, "m_pViewReset", tr("Reset"),
                             tr("Front view with the whole scene in the window"), ViewIcon::Reset);
    connect(reset, &QAction::triggered, this, [this] { ViewControl(*m_scene).reset(); });
    bar->addSeparator();
    m_boundingBox = makeAction(*bar, "m_pShowBoundingBox", tr("Bounding Box"), tr("Frame around the volume"),
                               ViewIcon::BoundingBox);
    m_axes = makeAction(*bar, "m_pShowAxes", tr("Axes"), tr("Axes of orientation, with a letter at each end"),
                        ViewIcon::Axes);
    m_scaleBar =
        makeAction(*bar, "m_pShowScaleBar", tr("Scale Bar"),
                   tr("Scale bar: true at every depth, as the projection is parallel"), ViewIcon::ScaleBar);
    m_boundingBox->setCheckable(true);
    m_axes->setCheckable(true);
    m_scaleBar->setCheckable(true);
    addShortcut(*m_axes, QKeySequence(static_cast<int>(Qt::CTRL) | Qt::SHIFT | Qt::Key_A));
    addShortcut(*m_scaleBar, QKeySequence(static_cast<int>(Qt::CTRL) | Qt::SHIFT | Qt::Key_B));
    // triggered, not toggled: apply() is no act of the user.
    connect(m_boundingBox, &QAction::triggered, this, [this](bool on) {
        ViewControl(*m_scene).showBoundingBox(on);
        emit boundingBoxToggled(on);
    });
    connect(m_axes, &QAction::triggered, this, [this](bool on) {
        ViewControl(*m_scene).showAxes(on);
        emit axesToggled(on);
    });
    connect(m_scaleBar, &QAction::triggered, this, [this](bool on) {
        ViewControl(*m_scene).showScaleBar(on);
        emit scaleBarToggled(on);
    });

    bar->addSeparator();
    for (int axis = 0; axis < 3; ++axis) {
        auto const& plane = planes[axis];
        auto* action = makeAction(*bar, plane.name, tr(plane.text), tr(plane.tip), plane.icon);
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, axis](bool on) {
            showSlice(axis, on);
            emit sliceToggled(axis, on);
        });
        m_slices[axis] = action;
    }
    bar->addSeparator();
    m_measure = makeAction(*bar, "m_pMeasure", tr("Measure"),
                           tr("Measure a distance: click at two points of the volume or of a slice"),
                           ViewIcon::Measure);
    m_measure->setCheckable(true);
    connect(m_measure, &QAction::triggered, this, [this](bool on) {
        // Whoever has a tool in the scene gives it up first.
        emit measuringToggled(on);
        m_scene->doMeasureVoxels(on);
    });
    connect(m_scene, &C3DScene::measuringChanged, m_measure, &QAction::setChecked);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(bar);
    layout->addWidget(m_scene, 1);
    apply(S3DControls());
}

void ScenePage::apply(S3DControls const& controls)
{
    m_boundingBox->setChecked(controls.m_bShowBoundingBox);
    m_axes->setChecked(controls.m_bShowAxes);
    m_scaleBar->setChecked(controls.m_bShowScaleBar);
    ViewControl(*m_scene).showBoundingBox(controls.m_bShowBoundingBox);
    ViewControl(*m_scene).showAxes(controls.m_bShowAxes);
    ViewControl(*m_scene).showScaleBar(controls.m_bShowScaleBar);
    for (int axis = 0; axis < 3; ++axis) {
        m_slices[axis]->setChecked(controls.m_bShowSlice[axis]);
        showSlice(axis, controls.m_bShowSlice[axis]);
    }
    m_measure->setChecked(controls.m_bMeasuring);
    m_scene->doMeasureVoxels(controls.m_bMeasuring);
}

void ScenePage::addShortcut(QAction& action, QKeySequence const& keys)
{
    // Each window has a page of its own: the keys belong to the one that has the focus.
    action.setShortcut(keys);
    action.setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(&action);
    QString const tip = tr("%1 (%2)").arg(action.toolTip(), keys.toString(QKeySequence::NativeText));
    action.setToolTip(tip);
    action.setStatusTip(tip);
}

void ScenePage::showSlice(int axis, bool on)
{
    m_scene->get3DSliceView(static_cast<C3DScene::slice_view>(axis))->show(on);
}
