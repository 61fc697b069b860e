#pragma once

#include "HVReconSurfaceVolume/HVReconSurfaceVolume_global.h"

#include <QString>
#include <QStringList>
#include <QThread>
#include <memory>

class C3DScene;
class CHVSSequenceDataset;
class CHVSSequenceWindow;

namespace VOXM {
template <class T>
class volume;
}

// Runs processing scripts on the volume of a sequence: commands that take the volume's voxels and put others
// in their place. Everything but run() is called from the GUI thread.
class HVRECONSURFACEVOLUME_EXPORT ScriptManagerKernel : public QThread
{
    Q_OBJECT

public:
    explicit ScriptManagerKernel(QObject* parent = nullptr);
    ~ScriptManagerKernel() override;

    // What the scripts work on, for as long as it exists: the sequence, its window and the scene in it. Null
    // clears; none of them is owned.
    void setSequence(CHVSSequenceDataset* sequence);
    void setSequenceWindow(CHVSSequenceWindow* window);
    void setScene(C3DScene* scene);

    // The sequence whose volume is worked on; the null string clears.
    void setCurrentSequenceId(QString& sequenceId);

    // The sequence has a new volume: what was kept of the former one is dropped.
    void onVolumeLoadReset();

    // Voxel value from which on tissue counts as visible, 0 to 255.
    void setThreshold(int threshold);
    int getThreshold() const;

    // Whether scripts work within the crop box only.
    void setCropData(bool crop);
    bool isCropData() const;

    // Voxels that are joined to one along x, y and z before a script runs; 1 leaves them.
    void setDownsampleBinning(int x, int y, int z);

    // True lets a script replace the volume without asking.
    void setOverride(bool doOverride);

    // Reads a script by the name of its file in the script folder, ".srt" included.
    virtual bool loadScriptFile(QString fileName);

    // Runs the loaded script on the volume; brings the voxels back as they were loaded.
    virtual void onClickRun();
    virtual void onClickReset();

    // Runs commands, one a text; `threaded` in the background.
    void onRunScript(QStringList commands, bool threaded);

    // Puts voxels into the sequence's volume node and shows them. `resetView` also resets the camera,
    // `updateBox` the crop box.
    void update3DView(VOXM::volume<unsigned char>& voxels, bool resetView, bool updateBox);

protected:
    void run() override;

private:
    Q_DISABLE_COPY(ScriptManagerKernel)
    class Private;
    std::unique_ptr<Private> d;
};
