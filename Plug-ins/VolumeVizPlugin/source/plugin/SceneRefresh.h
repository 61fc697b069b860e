#pragma once

class C3DObject;
class C3DScene;
class CHVSSequenceWindow;

/// The orders in which the host is told to show changed data. Null arguments are ignored.
namespace SceneRefresh {

/// A volume was loaded: what was shown and measured before it is void.
void volumeArrived(CHVSSequenceWindow* window);
/// Then the window's own state, and the scene from its boxes to its tools, which gets the focus.
void volumeLoaded(CHVSSequenceWindow* window);

/// Spacing or axis orientation of the volume changed.
void geometryChanged(C3DScene* scene);

/// The volume was shown or hidden: what the slices show of it no longer agrees.
void slicesChanged(C3DScene* scene, C3DObject* volume);

/// The colours of the slices changed, and nothing else.
void slicesRecoloured(C3DScene* scene, C3DObject* volume);

/// The voxels were replaced where they lie.
void voxelsChanged(C3DScene* scene, C3DObject* volume);

/// The crop box was opened.
void cropReset(C3DScene* scene);

/// The volume was put back to its place.
void transformationReset(C3DScene* scene);

}  // namespace SceneRefresh
