#include "hvapi/plugin/CHVToolPalettePluginBase.h"

#include <QLabel>
#include <QPointer>

/// A plug-in that stands before the others by its rank, though not by its file's name, and has no action.
class FirstPlugin : public CHVToolPalettePluginBase
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "brt.halvane.test.first")
    Q_INTERFACES(CHVToolPalettePluginBase)

public:
    ~FirstPlugin() override { delete m_pPalette; }

    void initPlugin() override {}
    QWidget* getPaletteWidget() override
    {
        if (!m_pPalette) m_pPalette = new QLabel(QStringLiteral("First"));
        return m_pPalette;
    }
    QString getPluginName() override { return QStringLiteral("Tools of Rank 3"); }
    int getPluginRank() override { return 3; }
    bool defaultVisibilityForPluggin() override { return false; }

private:
    QPointer<QWidget> m_pPalette;
};

#include "FirstPlugin.moc"
