#include <QObject>
#include <QtPlugin>

/// A Qt plug-in of another kind.
class ForeignPlugin : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.example.another.kind")
};

#include "ForeignPlugin.moc"
