#include "hvapi/plugin/CHVToolPalettePluginBase.h"

/// A plug-in that finds that it can't work here.
class DecliningPlugin : public CHVToolPalettePluginBase
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "brt.halvane.test.declining")
    Q_INTERFACES(CHVToolPalettePluginBase)

public:
    void initPlugin() override {}
    QWidget* getPaletteWidget() override { return nullptr; }
    QString getPluginName() override { return QStringLiteral("Declining"); }
    int getPluginRank() override { return 1; }
    bool isPluginAvailable() override { return false; }
};

#include "DecliningPlugin.moc"
