#include "PaletteDock.h"

#include "Icons.h"

#include <QScrollArea>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

/// Width of a palette, its margins and the scroll bar that a low screen needs.
constexpr int usualWidth = 352;

}  // namespace

PaletteDock::PaletteDock(QWidget* parent)
    : QDockWidget(QStringLiteral("Tools"), parent)
{
    setObjectName(QStringLiteral("PaletteDock"));
    setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);

    auto* content = new QWidget;
    content->setMinimumWidth(usualWidth - 24);
    m_pColumn = new QVBoxLayout(content);
    m_pColumn->setContentsMargins(6, 6, 6, 6);
    m_pColumn->setSpacing(4);
    m_pColumn->addStretch();

    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    scroll->setMinimumWidth(usualWidth);
    scroll->setWidget(content);
    setWidget(scroll);
}

void PaletteDock::addPalette(QWidget* palette, const QString& name, int rank, bool open)
{
    auto* heading = new QToolButton;
    heading->setText(name);
    heading->setObjectName(QStringLiteral("PaletteHeading"));
    heading->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    heading->setCheckable(true);
    heading->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    heading->setFocusPolicy(Qt::TabFocus);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);

    const auto place =
        std::upper_bound(m_sections.begin(), m_sections.end(), rank,
                         [](int value, const Section& section) { return value < section.rank; });
    const int row = 2 * static_cast<int>(place - m_sections.begin());
    const Section section = *m_sections.insert(place, Section{palette, heading, name, rank});
    m_pColumn->insertWidget(row, heading);
    m_pColumn->insertWidget(row + 1, palette, 0, Qt::AlignHCenter | Qt::AlignTop);

    connect(heading, &QToolButton::toggled, this, [this, section](bool on) { setOpen(section, on); });
    connect(palette, &QObject::destroyed, this, &PaletteDock::forget);
    heading->setChecked(open);
    setOpen(section, open);
    setValidity(palette, false);
}

void PaletteDock::setValidity(QWidget* palette, bool valid)
{
    for (const Section& section : m_sections) {
        if (section.palette != palette) continue;
        palette->setEnabled(valid);
        section.heading->setEnabled(valid);
        section.heading->setToolTip(valid ? QString() : QStringLiteral("Not for the window in front"));
    }
}

QStringList PaletteDock::paletteNames() const
{
    QStringList names;
    for (const Section& section : m_sections)
        names << section.name;
    return names;
}

void PaletteDock::forget(QObject* palette)
{
    const auto gone = std::find_if(m_sections.begin(), m_sections.end(),
                                   [palette](const Section& section) { return section.palette == palette; });
    if (gone == m_sections.end()) return;
    delete gone->heading;
    m_sections.erase(gone);
}

void PaletteDock::setOpen(const Section& section, bool open)
{
    section.heading->setIcon(Icons::make(open ? Icons::Shape::Expanded : Icons::Shape::Collapsed));
    section.palette->setVisible(open);
}
