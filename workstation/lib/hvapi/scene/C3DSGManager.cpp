#include "lib/hvapi/scene/C3DSGManagerPrivate.h"

#include "hvapi/scene/C3DView.h"
#include "hvapi/scene/C3DVolume.h"
#include "hvapi/scene/C3DVolumeData.h"
#include "lib/hvapi/scene/GlContextScope.h"
#include "lib/hvapi/scene/logic/VolumeSize.h"

#include <algorithm>

namespace {

C3DSGNode* findNode(C3DSGNode* node, const QString& name)
{
    if (!node || node->getName() == name) return node;
    for (QObject* child : node->children())
        if (auto* childNode = qobject_cast<C3DSGNode*>(child))
            if (C3DSGNode* found = findNode(childNode, name)) return found;
    return nullptr;
}

C3DVolume* findOpticalVolume(C3DSGNode* node)
{
    if (!node) return nullptr;
    if (auto* volume = dynamic_cast<C3DVolume*>(node)) return volume;
    for (QObject* child : node->children())
        if (C3DVolume* found = findOpticalVolume(qobject_cast<C3DSGNode*>(child))) return found;
    return nullptr;
}

}  // namespace

C3DSGManager::C3DSGManager(QObject* parent)
    : QObject(parent)
    , d(std::make_unique<Private>(this))
{}

C3DSGManager::~C3DSGManager()
{
    if (d->root && !d->root->children().isEmpty()) {
        // Nodes delete their GL objects, which any context of the sharing group can do.
        const hvscene::GlContextScope scope(d->views.empty() ? nullptr : d->views.front());
        delete d->root;
    } else {
        delete d->root;
    }
    d->requestRepaint();
}

C3DSGNode* C3DSGManager::getNode(QString name)
{
    return findNode(d->root, name);
}

C3DSGNode* C3DSGManager::getRootNode()
{
    return d->root;
}

bool C3DSGManager::addChild(C3DSGNode* parent, C3DSGNode* child)
{
    if (!parent || !child || hvscene::graphOf(parent) != this || child->parent()) return false;
    if (getNode(child->getName())) return false;
    child->setParent(parent);
    return true;
}

C3DVolume* C3DSGManager::get3DVolume()
{
    return findOpticalVolume(d->root);
}

QString C3DSGManager::getTransformedObjectName()
{
    return d->transformObject;
}

void C3DSGManager::setTransformObjectName(QString name)
{
    d->transformObject = name;
}

void C3DSGManager::informTransformObjectChanged(QString name)
{
    d->transformObject = name;
    emit transformObjectChanged(name);
}

C3DSGManager::Private& C3DSGManager::hostSide()
{
    return *d;
}

void C3DSGManager::Private::makeRoot()
{
    if (root) return;
    root = new C3DSGNode(QStringLiteral("Root"));
    root->setParent(q);
}

void C3DSGManager::Private::addRenderable(C3DObject* object)
{
    m_renderables.erase(std::remove(m_renderables.begin(), m_renderables.end(), nullptr),
                        m_renderables.end());
    if (!object || std::find(m_renderables.begin(), m_renderables.end(), object) != m_renderables.end())
        return;
    m_renderables.emplace_back(object);
    requestRepaint();
}

std::vector<C3DObject*> C3DSGManager::Private::renderables() const
{
    std::vector<C3DObject*> living;
    for (const QPointer<C3DObject>& object : m_renderables)
        if (object) living.push_back(object);
    return living;
}

hvscene::Box C3DSGManager::Private::sceneBox() const
{
    hvscene::Box scene;
    for (C3DObject* object : renderables()) {
        if (!object->isValid()) continue;
        Coord3d min;
        Coord3d max;
        object->getTransformedBBox(min, max);
        hvscene::Box box;
        box.add({min.x, min.y, min.z});
        box.add({max.x, max.y, max.z});
        if (!hvscene::isFinite(box.min) || !hvscene::isFinite(box.max) || !(box.radius() > 0.0)) continue;
        scene.add(box.min);
        scene.add(box.max);
    }
    return scene;
}

void C3DSGManager::Private::requestRepaint() const
{
    for (C3DView* view : views)
        view->update();
}

C3DVolumeData* C3DSGManager::Private::volumeToCrop() const
{
    for (C3DObject* object : renderables())
        if (auto* volume = qobject_cast<C3DVolumeData*>(object)) return volume;
    return nullptr;
}

namespace hvscene {

C3DSGManager* graphOf(const C3DSGNode* node)
{
    for (QObject* above = node ? node->parent() : nullptr; above; above = above->parent())
        if (auto* manager = qobject_cast<C3DSGManager*>(above)) return manager;
    return nullptr;
}

void repaintViewsOf(const C3DSGNode* node)
{
    if (C3DSGManager* manager = graphOf(node)) manager->hostSide().requestRepaint();
}

}  // namespace hvscene
