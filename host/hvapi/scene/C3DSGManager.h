#pragma once

#include "hvapi/hvapi_global.h"

#include <QObject>
#include <QString>
#include <memory>

class C3DSGNode;
class C3DVolume;

/// The scene graph of a sequence. It owns its nodes, and deletes them with a GL context current as long as
/// the application lives.
class HVAPI_EXPORT C3DSGManager : public QObject
{
    Q_OBJECT

public:
    /// A graph without a root; the root comes with the first 3D scene that shows the graph.
    explicit C3DSGManager(QObject* parent = nullptr);
    ~C3DSGManager() override;

    /// The node of that name (case counts), or null.
    C3DSGNode* getNode(QString name);
    /// Null before a scene exists.
    C3DSGNode* getRootNode();
    /// Puts `child` below `parent`; the graph owns it from then on. False, with the child left to the caller,
    /// for a null pointer, a parent that is not of this graph, a child that is in a graph already, and a name
    /// that the graph holds already.
    bool addChild(C3DSGNode* parent, C3DSGNode* child);
    /// The optical volume, or null.
    C3DVolume* get3DVolume();

    /// The name of the object that the transform and crop tools work on; empty when there is none.
    QString getTransformedObjectName();
    void setTransformObjectName(QString name);
    /// Sets the name and signals it.
    void informTransformObjectChanged(QString name);

    /// The host's own side of the graph.
    struct Private;
    Private& hostSide();

signals:
    void transformObjectChanged(QString name);

private:
    Q_DISABLE_COPY(C3DSGManager)
    std::unique_ptr<Private> d;
};
