#include "Signatures.h"
#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/scene/C3DSlice.h"
#include "hvapi/scene/C3DToolBase.h"
#include "hvapi/scene/C3DVolume.h"
#include "hvapi/scene/C3DVolumeData.h"
#include "hvapi/scene/CGLProgram.h"

using Graph = C3DSGManager&;
GIVES(C3DSGNode*, some<Graph>().getNode(some<QString>()));
GIVES(C3DSGNode*, some<Graph>().getRootNode());
GIVES(bool, some<Graph>().addChild(some<C3DSGNode*>(), some<C3DSGNode*>()));
GIVES(C3DVolume*, some<Graph>().get3DVolume());
GIVES(QString, some<Graph>().getTransformedObjectName());
GIVES(void, some<Graph>().setTransformObjectName(some<QString>()));
GIVES(void, some<Graph>().informTransformObjectChanged(some<QString>()));

static_assert(std::is_base_of_v<QObject, C3DSGNode> && std::is_base_of_v<C3DSGNode, C3DObject> &&
              std::is_base_of_v<C3DObject, C3DVolumeData>);
using Object = C3DObject&;
GIVES(void, some<Object>().show(some<bool>()));
GIVES(bool, some<Object>().isDisplayed());
GIVES(matrix, some<Object>().getTransformation());
GIVES(void, some<Object>().setTransformation(some<matrix const&>()));
GIVES(Coord3d, some<Object>().getCenter());
GIVES(void, some<Object>().applyTransform());

using Data = C3DVolumeData&;
GIVES(bool, some<Data>().loadVolume(some<unsigned char*>(), some<unsigned int>(), some<unsigned int>(),
                                    some<unsigned int>(), some<unsigned long>(), some<unsigned long>(),
                                    some<float*>()));
GIVES(bool, some<Data>().loadVolumeNotUpdate3DView(some<unsigned char*>(), some<unsigned int>(),
                                                   some<unsigned int>(), some<unsigned int>(),
                                                   some<unsigned long>(), some<unsigned long>(),
                                                   some<float*>(), some<bool>()));
GIVES(void, some<Data>().resetRawSize());
GIVES(void, some<Data>().setRAWVolumeDataFile(some<QString>()));
GIVES(unsigned char*, some<Data>().getVolumeData());
GIVES(int, some<Data>().getWidth());
GIVES(int, some<Data>().getHeight());
GIVES(int, some<Data>().getDepth());
GIVES(int, some<Data>().getMin());
GIVES(int, some<Data>().getMax());
GIVES(void, some<Data>().freeVoxelData());
GIVES(Coord3d, some<Data>().getThickness());
GIVES(void, some<Data>().setThickness(some<Coord3d>()));
GIVES(_tagAxis_Orientation, some<Data>().getAxisOrientation());
GIVES(void, some<Data>().setAxisOrientation(some<bool>(), some<bool>(), some<bool>()));
GIVES(void, some<Data>().setBBox(some<Coord3d&>(), some<Coord3d&>()));
GIVES(void, some<Data>().setVolumeColorTable(some<unsigned char*>()));
GIVES(void, some<Data>().setVolumeRenderThreshold(some<unsigned char>()));

/// A node of a plug-in: what it may override, and what it takes from its base.
class VolumeNode : public C3DVolumeData
{
public:
    explicit VolumeNode(QString name);

    bool isTransform() override;
    void getBBox(Coord3d&, Coord3d&) override;
    void getTransformedBBox(Coord3d&, Coord3d&) override;
    bool isValid() override;
    void render(bool, GLenum) override;
    void renderNode(GLenum) override;
    void renderSlice(GLdouble*, GLuint) override;
    void setCropBoxOffset(Vec3f*) override;
    void setCropEnabled(bool) override;
    bool isCropEnabled() override;
    void setTransformationChanged(bool, bool) override;
    void notifyCropEquationsChanged(bool) override;
    void updateSliceColorTable() override;

    static void members()
    {
        GIVES(CGLProgram, VolumeNode::m_volumeProgram);
        GIVES(bool, VolumeNode::m_bVolumeColorTableUploaded);
        GIVES(unsigned char[1024], VolumeNode::m_volumeColorTable);
        GIVES(bool, VolumeNode::m_bSliceColorTableLocked);
    }
};

static_assert(std::is_base_of_v<QOpenGLWidget, C3DView> && std::is_base_of_v<C3DView, C3DScene>);
using Scene = C3DScene&;
constexpr auto allViews = static_cast<C3DScene::slice_view>(3);
GIVES(void, some<Scene>().refresh());
GIVES(void, some<Scene>().updateScene());
GIVES(void, some<Scene>().createSliceDisplayLists());
GIVES(void, some<Scene>().refreshSliceViews());
GIVES(void, some<Scene>().addToScene(some<C3DObject*>()));
GIVES(void, some<Scene>().setSliceDirty(some<C3DObject*>(), allViews, some<bool>()));
static_assert(C3DScene::ALL_VIEWS == 3 && C3DScene::YZ_VIEW == 0 && C3DScene::XZ_VIEW == 1 &&
              C3DScene::XY_VIEW == 2);
GIVES(QPointer<C3DSlice>, some<Scene>().getYZslice());
GIVES(QPointer<C3DSlice>, some<Scene>().getXZslice());
GIVES(QPointer<C3DSlice>, some<Scene>().getXYslice());
GIVES(QPointer<C3DSlice>, some<Scene>().get3DSliceView(allViews));
GIVES(double, some<C3DSlice&>().getPosition());
GIVES(void, some<C3DSlice&>().update());
GIVES(void, some<Scene>().doMeasureVoxels(some<bool>()));
GIVES(void, some<Scene>().setCurrentCameraTool(static_cast<C3DView::CameraTool>(0)));
GIVES(void, some<Scene>().showTransformTool(some<bool>(), some<QString>()));
GIVES(void, some<Scene>().showCroppingTool(some<bool>(), some<QString>()));
GIVES(void, some<Scene>().updateTransformTool());
GIVES(void, some<Scene>().updateCroppingTool());
GIVES(C3DToolBase*, some<Scene>().getCurrentTool());
GIVES(C3DToolBase::ToolType, some<C3DToolBase&>().getToolType());
static_assert(C3DToolBase::TransformTool == 1);

using View = C3DView&;
GIVES(sCropBoxOffset, some<View>().getCroppingBoxOffset());
GIVES(void, some<View>().setCroppingBoxOffset(some<Vec3f* const>()));
GIVES(void, some<View>().setCroppingBBox(some<Vec3f* const>()));
GIVES(void, some<View>().CTHUValueReverseToVoxelsConverter(some<int>(), some<float*>(), some<int*>(),
                                                           some<int*>(), some<int*>()));

using Optical = C3DVolume&;
GIVES(void, some<Optical>().setPreRenderEvaluationFlag(some<bool>()));
GIVES(void, some<Optical>().setPreRenderEvaluationVoxelRatio(some<float>()));
GIVES(void, some<Optical>().setMultiPassRenderWithDepthTest(some<bool>()));
GIVES(void, some<Optical>().setUIEnableMultiPassRenderWithDepthTest(some<bool>()));
GIVES(float, some<Optical>().getDefaultThreshold());
GIVES(void, some<Optical>().setThreshold(some<float>()));
GIVES(float, some<Optical>().getAttribMinValue());

using Program = CGLProgram&;
constexpr auto fragmentStage = static_cast<ShaderType>(0);
static_assert(fragmentStage == FRAGMENT_SHADER && std::has_virtual_destructor_v<CGLProgram>);
GIVES(bool, some<Program>().addShader_Source(fragmentStage, some<QString>(), some<char const*>()));
GIVES(bool, some<Program>().updateShader_Source(fragmentStage, some<QString>(), some<char const*>()));
GIVES(void, some<Program>().activate());
GIVES(void, some<Program>().deactivate());
GIVES(GLuint, some<Program>().getID());
GIVES(bool, some<Program>().validateProgram());
