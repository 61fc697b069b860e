#include "hvapi/plugin/CHVToolPalettePluginBase.h"

#include <stdexcept>

/// A plug-in that fails at its start.
class ThrowingPlugin : public CHVToolPalettePluginBase
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "brt.halvane.test.throwing")
    Q_INTERFACES(CHVToolPalettePluginBase)

public:
    void initPlugin() override { throw std::runtime_error("no licence for this machine"); }
    QWidget* getPaletteWidget() override { return nullptr; }
    QString getPluginName() override { return QStringLiteral("Throwing"); }
    int getPluginRank() override { return 1; }
};

#include "ThrowingPlugin.moc"
