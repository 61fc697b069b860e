#include "hvapi/scene/C3DSGNode.h"

C3DSGNode::C3DSGNode(QString name)
{
    setObjectName(name);
}

C3DSGNode::~C3DSGNode() = default;

QString C3DSGNode::getName() const
{
    return objectName();
}

bool C3DSGNode::isTransform()
{
    return false;
}
