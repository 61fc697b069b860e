#pragma once

#include <QDockWidget>

#include <vector>

class QToolButton;
class QVBoxLayout;

/// The tool list beside the workspace: each plug-in's palette under a heading, in the order of their ranks. A
/// heading folds its palette away. A palette that does not fit the window in front is disabled, heading and
/// all.
class PaletteDock : public QDockWidget
{
    Q_OBJECT

public:
    explicit PaletteDock(QWidget* parent = nullptr);

    /// Takes a palette in, disabled. It stays its plug-in's; a palette that goes takes its heading along.
    /// Equal ranks stand in the order in which they came.
    void addPalette(QWidget* palette, const QString& name, int rank, bool open);

    /// Enables or disables a palette. One that is not in the dock is no concern of it.
    void setValidity(QWidget* palette, bool valid);

    /// Names of the palettes from top to bottom.
    QStringList paletteNames() const;

private:
    struct Section
    {
        QWidget* palette;
        QToolButton* heading;
        QString name;
        int rank;
    };

    void forget(QObject* palette);
    void setOpen(const Section& section, bool open);

    QVBoxLayout* m_pColumn;
    std::vector<Section> m_sections;
};
