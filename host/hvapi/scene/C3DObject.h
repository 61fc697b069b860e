#pragma once

#include "hvapi/scene/C3DSGNode.h"
#include "hvapi/values/Coord3d.h"
#include "hvapi/values/Vec3f.h"
#include "hvapi/values/matrix.h"

#include <QtGui/qopengl.h>
#include <memory>

/// A node with a place in space and a visibility: what a 3D view can draw. Lengths are millimetres.
class HVAPI_EXPORT C3DObject : public C3DSGNode
{
    Q_OBJECT

public:
    /// A visible object with the identity as its transformation.
    explicit C3DObject(QString name);
    ~C3DObject() override;

    /// Shows or hides the object; views repaint when the state changes.
    void show(bool bShow);
    bool isDisplayed() const;

    /// From the object's own space to the scene's.
    matrix getTransformation() const;
    void setTransformation(const matrix& transformation);
    /// The middle of `getBBox`, in the object's own space.
    Coord3d getCenter() const;
    /// Multiplies the transformation into the current GL matrix. Needs a current context.
    void applyTransform();

    /// The box of the object in its own space. The base has the empty box at the origin.
    virtual void getBBox(Coord3d& min, Coord3d& max);
    /// The axis-aligned box, in the scene's space, around the eight transformed corners of `getBBox`.
    virtual void getTransformedBBox(Coord3d& min, Coord3d& max);
    /// True when there is something to draw. The base answers true.
    virtual bool isValid();

    /// Draws the object in its own space; the caller has set the matrices. The base draws nothing.
    virtual void render(bool dirty, GLenum mode);
    /// Entry of a view's walk over the scene. `mode` is GL_RENDER, or GL_SELECT when the view looks for what
    /// lies under the mouse. The caller saves and restores the modelview matrix. The base, in GL_RENDER and
    /// when displayed and valid, applies the transformation and calls `render`.
    virtual void renderNode(GLenum mode);
    /// Draws the cut of the object with the plane a, b, c, d (four doubles, ax + by + cz = d). `id` of all
    /// ones stands for the object's own space, any other for the scene's. The base draws nothing.
    virtual void renderSlice(GLdouble* plane, GLuint id);

    /// Eight corner offsets of the crop box, as fractions of half the box, see `sCropBoxOffset`. The base,
    /// like that of the next two, has no crop.
    virtual void setCropBoxOffset(Vec3f* offsets);
    virtual void setCropEnabled(bool bEnable);
    virtual bool isCropEnabled();

    /// Told when the transformation was changed by a tool of the view: `bChanged` marks it as changed or as
    /// settled, and `bNotify` asks for the signal `transformationChanged`.
    virtual void setTransformationChanged(bool bChanged, bool bNotify);

signals:
    /// The object was shown or hidden.
    void visibilityChanged(bool bShown);
    /// The transformation was written, or a tool reported a change of it.
    void transformationChanged(bool bChanged);

private:
    Q_DISABLE_COPY(C3DObject)
    struct Private;
    std::unique_ptr<Private> d;
};
