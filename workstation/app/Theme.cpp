#include "Theme.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

namespace Theme {

const QColor window(0x2b, 0x2d, 0x30);
const QColor workspace(0x19, 0x1a, 0x1c);
const QColor field(0x20, 0x21, 0x24);
const QColor line(0x3e, 0x41, 0x46);
const QColor text(0xd8, 0xda, 0xdd);
const QColor quietText(0x93, 0x97, 0x9d);
const QColor accent(0x3f, 0x7f, 0xa6);
const QColor information(0x8a, 0xb4, 0xcf);
const QColor status(0x86, 0xb3, 0x8c);
const QColor warning(0xe0, 0xb0, 0x5c);
const QColor error(0xe2, 0x77, 0x6c);

namespace {

QPalette palette()
{
    QPalette colours;
    colours.setColor(QPalette::Window, window);
    colours.setColor(QPalette::WindowText, text);
    colours.setColor(QPalette::Base, field);
    colours.setColor(QPalette::AlternateBase, field.lighter(112));
    colours.setColor(QPalette::Text, text);
    colours.setColor(QPalette::PlaceholderText, quietText);
    colours.setColor(QPalette::Button, QColor(0x31, 0x33, 0x37));
    colours.setColor(QPalette::ButtonText, text);
    colours.setColor(QPalette::BrightText, Qt::white);
    colours.setColor(QPalette::Light, QColor(0x4a, 0x4e, 0x54));
    colours.setColor(QPalette::Midlight, QColor(0x42, 0x45, 0x4a));
    colours.setColor(QPalette::Mid, QColor(0x26, 0x28, 0x2b));
    colours.setColor(QPalette::Dark, QColor(0x1c, 0x1d, 0x1f));
    colours.setColor(QPalette::Shadow, QColor(0x10, 0x11, 0x12));
    colours.setColor(QPalette::Highlight, accent);
    colours.setColor(QPalette::HighlightedText, Qt::white);
    colours.setColor(QPalette::Link, information);
    colours.setColor(QPalette::LinkVisited, information.darker(120));
    colours.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3d, 0x42));
    colours.setColor(QPalette::ToolTipText, text);
    const QColor faded(0x7c, 0x80, 0x87);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colours.setColor(QPalette::Disabled, role, faded);
    colours.setColor(QPalette::Disabled, QPalette::Base, window);
    colours.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x4a, 0x4e, 0x54));
    colours.setColor(QPalette::Disabled, QPalette::HighlightedText, faded);
    colours.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0x44, 0x5f, 0x72));
    return colours;
}

/// Only the frame of the program; what stands in palettes and dialogs keeps its style's own measures.
QString styleSheet()
{
    return QStringLiteral(R"(
        QMenuBar { background: %1; border-bottom: 1px solid %3; padding: 2px; }
        QMenuBar::item { padding: 4px 9px; border-radius: 3px; background: transparent; }
        QMenuBar::item:selected { background: %3; }
        QMenu { background: %1; border: 1px solid %3; padding: 4px; }
        QMenu::item { padding: 5px 24px 5px 8px; border-radius: 3px; }
        QMenu::item:selected { background: %5; color: white; }
        QMenu::item:disabled { color: %6; background: transparent; }
        QMenu::icon { padding-left: 6px; }
        QMenu::separator { height: 1px; background: %3; margin: 4px 6px; }
        QToolTip { border: 1px solid %3; padding: 3px; }
        QStatusBar { background: %1; border-top: 1px solid %3; }
        QStatusBar::item { border: none; }
        QStatusBar QLabel { padding: 2px 6px; }
        QMainWindow::separator { background: %2; width: 4px; height: 4px; }
        QMainWindow::separator:hover { background: %5; }
        QMainWindow > QToolBar { background: %1; border: none; border-bottom: 1px solid %3; padding: 3px; spacing: 3px; }
        PaletteDock QScrollArea QWidget { font-size: 8pt; }
        PaletteDock QDialog QDialog, PaletteDock QDialog QDialog QWidget { font-size: 9pt; }
        QMainWindow > QDockWidget { color: %4; }
        QMainWindow > QDockWidget::title { background: %1; border-bottom: 1px solid %3; padding: 6px 8px; text-align: left; }
    )")
        .arg(window.name(), workspace.name(), line.name(), quietText.name(), accent.name(),
             palette().color(QPalette::Disabled, QPalette::Text).name());
}

}  // namespace

void apply(QApplication& application)
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(palette());
    application.setStyleSheet(styleSheet());
}

}  // namespace Theme
