#pragma once

#include "hvapi/hvapi_global.h"

#include <QObject>
#include <QString>

/// A named node of a scene graph. The parent node owns its children; `C3DSGManager::addChild` puts a node
/// into a graph. Nodes live in the GUI thread.
class HVAPI_EXPORT C3DSGNode : public QObject
{
    Q_OBJECT

public:
    /// `name` is the key by which `C3DSGManager::getNode` finds the node.
    explicit C3DSGNode(QString name);
    ~C3DSGNode() override;

    QString getName() const;

    /// True for a node that only moves its children and draws nothing itself. The base answers false.
    virtual bool isTransform();

private:
    Q_DISABLE_COPY(C3DSGNode)
};
