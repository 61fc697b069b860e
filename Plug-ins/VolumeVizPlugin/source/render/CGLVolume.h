#pragma once

#include "hvapi/scene/C3DVolumeData.h"
#include "hvapi/scene/CGLProgram.h"
#include "hvapi/values/matrix.h"
#include "hvimage/CILPalette.h"
#include "hvimage/HVS_COLORTABLE_TYPES.h"
#include "render/logic/VolumeVertex.h"

/// The node "GLVolume": draws the voxels of its base class by slicing a 3D texture.
///
/// Settings are pushed into the node and show in the next frame. The three passes draw into whatever
/// framebuffer is current, in the GUI thread, with a current context that shares objects with the scene's;
/// without OpenGL 2.0 they return quietly. GL names are made at first use and deleted by the destructor,
/// which expects such a context as well. Lengths are millimetres in the volume's own space, intensities are
/// those of the source, densities are percent (100: one slice per voxel).
class CGLVolume : public C3DVolumeData
{
    Q_OBJECT

public:
    /// Makes no GL call. The name is always "GLVolume".
    explicit CGLVolume(QString name);
    ~CGLVolume() override;

    /// True also for a node whose voxels are gone but whose texture still stands.
    bool isValid() override;
    /// Entry of the scene walk: builds the programs when they are due and, in GL_RENDER only, draws the
    /// volume under its transformation.
    void renderNode(GLenum mode) override;
    /// Eight corner offsets of the crop box, as fractions of half the box. Null is ignored.
    void setCropBoxOffset(Vec3f* offsets) override;
    void setCropEnabled(bool bEnable) override;
    bool isCropEnabled() override;
    void notifyCropEquationsChanged(bool bModified) override;
    /// Fills the table of the slices from the slice palette, unless the table is locked.
    void updateSliceColorTable() override;

    /// For a host that moves the volume: emits `onSignalTransformationChanged`.
    void notifyTransformationChanged(bool bModified);

    /// Greys of 0 to 1 for the three light colours, each with alpha 1.
    void setLightIntensity(float ambient, float diffuse, float specular);
    /// Mean of the colour's red, green and blue.
    float getAmbientIntensity() const;
    float getDiffuseIntensity() const;
    float getSpecularIntensity() const;
    /// Exponent of the highlight.
    void setShininess(float shininess);
    float getShininess() const;
    /// Added to the colour of lit voxels.
    void setEmissionCompensation(float emission);
    float getEmissionCompensation() const;
    /// Gradient illumination; the getter answers 0 or 1.
    void setLighting(bool bLighting);
    float getLighting() const;

    void setMedianFilterDenoise(bool bFilter);
    bool isMedianFilterDenoise() const;
    void setFilterDenoiseGradient(bool bFilter);
    bool isFilterDenoiseGradient() const;
    /// Which shader text is used. Reaches the picture only after `setShadersReady(false)`.
    void setRenderInBestPerformance(bool bPerformance);
    bool isRenderInBestPerformance() const;
    /// False makes the next `renderNode` replace the volume shader.
    void setShadersReady(bool bReady);

    /// Maximum intensity projection, or alpha compositing.
    void setMIP(bool bMIP);
    bool isMIP() const;

    /// Slice density for the next frame. The requested density, `m_nLevelOfDetail`, is written beside it.
    void setLevelOfDetail(int nDensity);

    /// Slices are coloured by the transfer function instead of the slice colour bar.
    void setSliceUseTransferFunction(bool bUse);
    /// 0 to 1.
    void setSliceOpacity(float opacity);
    /// Ends of the slice colour bar, in intensities of the source.
    void setSliceMin(float min);
    void setSliceMax(float max);
    void setSliceColorTable(HVS_COLORTABLE_TYPES type, bool reversed, bool logScale);

    /// Frame-time limit of the quality mode in seconds.
    void setQualityRenderingThreshold(float seconds);
    float getQualityRenderingThreshold() const;
    float getDefaultQualityRenderingThreshold() const;
    /// Share of the full slice density in the partial render that measures the frame time.
    float getPreRenderVoxelRatio() const;

signals:
    /// The crop planes were changed by a tool; true marks the user's work as changed.
    void onSignalCroppinEquationsChanged(bool bModified);
    /// The transformation was changed; true marks the user's work as changed.
    void onSignalTransformationChanged(bool bModified);
    /// New crop planes are in force.
    void onSignalVolumeCropParametersChanged();

public slots:
    /// The volume pass, when the object is displayed. The arguments are not looked at.
    void render(bool dirty, GLenum mode) override;
    void render(bool dirty);
    /// Draws the cut with the plane ax + by + cz = d, `plane` holding the four. `id` of all ones: the plane
    /// is in the node's own space; any other: in the scene's, and box and crop are put under the
    /// transformation.
    void renderSlice(GLdouble* plane, GLuint id) override;
    /// Draws the slab of `thickness` around `position` along an axis (1 = x, 2 = y, 4 = z) as a stack of
    /// slices, blended by `eRenderingMode` (GL_FUNC_ADD, GL_MAX, GL_MIN).
    void renderThickSlice(int axis, double position, double thickness, GLenum eRenderingMode, bool bLighting);
    /// Takes the box and the axis orientation of the base class.
    void recalculateGeometry();
    /// For a view of slices, before its first: builds the programs when they are due, and gives the volume
    /// program, which draws the slabs, the shading parameters that otherwise the last volume pass has left in
    /// it. Draws nothing.
    void prepareForSlices();

public:
    /// New voxels: they will be sent to the texture, the crop is cleared, the slice bar is 0 to 100.
    Q_INVOKABLE void resetVolumeStates();

    // The order of the members follows the node's data model; m_nLevelOfDetail is written by its users.
private:
    bool m_bSliceColorTableUploaded = false;   ///< the table below is in its texture
    unsigned char m_sliceColorTable[256 * 4];  ///< R, G, B, A for slices without the transfer function
public:
    int m_nLevelOfDetail = 100;  ///< requested slice density, percent
private:
    GLuint m_uColorTableTex = 0;
    GLuint m_uSliceColorTableTex = 0;
    double m_cropPlanes[6][4];              ///< a, b, c, d, see makeCropPlanes()
    GLenum m_eBlendEquation = GL_FUNC_ADD;  ///< GL_FUNC_ADD, GL_MAX or GL_MIN
    GLuint m_uVolumeTex = 0;
    GLuint m_uVolumeList = 0;
    GLuint m_uThickSliceList = 0;
    bool m_bVolumeListDirty = true;  ///< the list must be compiled again
    bool m_bThickSliceListDirty = true;
    VolumeVertex m_vertices[8];
    VolumeEdge m_edges[12];
    int m_nSliceDensity = 100;     ///< density in force, percent
    bool m_bShadersReady = false;  ///< the programs fit m_bRenderInBestPerformance
    bool m_bLighting = false;
    bool m_bVolumeTextureDirty = true;  ///< the voxels must be sent to the texture
    bool m_bSliceUseTransferFunction = false;
    CILPalette m_slicePalette;
    float m_fSliceOpacity = 1.0F;
    float m_fSliceMin = 0.0F;
    float m_fSliceMax = 100.0F;
    bool m_bCropEnabled = true;
    matrix m_volumeListMatrix;  ///< modelview matrix the list was compiled for
    matrix m_thickSliceListMatrix;
    CGLProgram m_sliceProgram;
    float m_fAmbient[4] = {0.2F, 0.2F, 0.2F, 1.0F};
    float m_fDiffuse[4] = {0.8F, 0.8F, 0.8F, 1.0F};
    float m_fSpecular[4] = {0.3F, 0.3F, 0.3F, 1.0F};
    float m_fShininess = 6.0F;
    float m_fEmissionCompensation = 0.06F;
    float m_fGradientSmoothThreshold = 0.2F;  ///< longer gradients are not filtered
    // The palette sets the next three after each load, before the first frame.
    bool m_bMedianFilterDenoise = false;
    bool m_bFilterDenoiseGradient = false;
    bool m_bRenderInBestPerformance = false;
    bool m_bSliceProgramAdded = false;  ///< the slice program is compiled once only
    bool m_bVolumeUniformsSet = false;  ///< the volume program knows all its parameters
    float m_fDefaultThresholdFactor = 3.0F;
    float m_fQualityRenderingThreshold;  ///< seconds
    float m_fPreRenderVoxelRatio = 1.0F / 30.0F;

private:
    Q_DISABLE_COPY(CGLVolume)
    friend struct CGLVolumeProbe;  // tests look at the fields

    /// A current context with OpenGL 2.0.
    static bool canDraw();

    // Shaders
    bool initShaders();
    void setVolumeUniforms(const VolumeVertex& view, double interval);
    /// What the volume pass and the thick-slice pass have in common.
    void setStackUniforms(bool bLighting, const VolumeVertex& view, double interval);
    void setSliceUniforms();

    // Textures. updateVolumeTexture() answers a GL error code, 0 for success.
    GLenum updateVolumeTexture();
    void uploadColorTable();
    void bindColorTable();
    void uploadSliceColorTable();
    void bindSliceColorTable();

    // Passes
    void renderVolume();
    void drawStack(const VolumeVertex& view, double interval);
    void drawThickStack(int axis, double interval);
    void drawSlice(const double (&plane)[4], const Coord3d& min, const Coord3d& max, bool bTransformed);
    void enableCropPlanes();
};
