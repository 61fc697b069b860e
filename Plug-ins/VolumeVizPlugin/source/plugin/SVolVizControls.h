#pragma once

#include "registration/SRegistrationState.h"
#include "transfer/logic/PointLock.h"

#include <QMap>
#include <QPolygonF>
#include <QRgb>
#include <QString>
#include <QStringList>
#include <QVector>
#include <array>

/// Everything that the user has set for one sequence: the palette keeps one such record by sequence id and
/// refills its widgets from it. Plain values; a copy is a full copy. The `reserved` fields keep the places of
/// settings that are gone; they travel with a copy and nothing reads them.
struct SVolVizControls
{
    bool bVolumeLoaded = false;  ///< the sequence has a volume
    bool bEnabled = false;       ///< "Display Volume" is on
    int nLevelOfDetail = 100;    ///< slices of the drawn stack, percent

    std::array<int, 3> reservedCounts{};
    bool bReservedFlag = false;

    int nSliceOpacity = 100;  ///< percent
    int nSliceOpacityMin = 0;
    int nSliceOpacityMax = 100;

    std::array<double, 9> reservedValues{};

    int nSliceColorSource = 0;  ///< 0: slices use nSliceColorTable, 1: the colours of the volume
    int nVolumeColorTable = 0;  ///< index in colorTableNames()

    bool bReserved = true;

    bool bTransformTool = false;  ///< the tool for moving the volume is on
    bool bCropTool = false;       ///< the crop tool is on

    int nSliceMin = 0;  ///< ends of the slices' colour scale, in units of the source
    int nSliceMax = 100;

    double dReserved = 0.0;

    double dVolumeMin = 0.0;  ///< range of the source's values
    double dVolumeMax = 255.0;
    double dSliceStep = 1.0;

    bool bLogHistogram = true;
    bool bMIP = false;        ///< maximum intensity projection
    bool bLighting = true;    ///< gradient illumination
    bool bMIPEnabled = true;  ///< the two exclude each other: whether each may be switched
    bool bLightingEnabled = true;
    bool bVolumeColorTableReverse = false;
    int nOpacitySlider = 100;  ///< percent
    bool bAutoFit = false;     ///< fit the transfer function when the histogram is next computed
    bool bTransformResetEnabled = true;
    bool bFiducialEnabled = false;

    QPolygonF transferPoints;  ///< control points of the transfer function; colours and locks go with them
    QVector<QRgb> transferColors;
    QVector<PointLock> transferLocks;
    std::array<double, 255> histogram{};
    QString strUnit = QStringLiteral("Counts");

    /// Names of the slice settings in result files, in their order there.
    QStringList sliceSettingKeys = {
        QStringLiteral("Opacity"),
        QStringLiteral("LogHistogram"),
        QStringLiteral("MIP"),
        QStringLiteral("GradiantIllumination"),
        QStringLiteral("LevelOfDetail"),
        QStringLiteral("SliceColorTable"),
        QStringLiteral("SliceUseColorTable"),
        QStringLiteral("SliceUseTransferFunction"),
        QStringLiteral("MinThreshold"),
        QStringLiteral("MaxThreshold"),
    };
    QStringList cropSettingKeys = {QStringLiteral("Enabled"), QStringLiteral("BoundingBox")};

    bool bSliceColorTableReverse = false;
    int nSliceColorTable = 0;  ///< index in colorTableNames()
    bool bSliceReverseInitial = false;

    QMap<QString, QString> volumeInfo;  ///< descriptive entries of the volume
    bool bModified = false;             ///< there are results that were not saved
    QStringList fileList;               ///< files that the volume came from

    SRegistrationState registration;

    bool bMedianFilterDenoise = false;
    bool bFilterDenoiseGradient = true;
    bool bBestQuality = true;
    float fHistogramYAxisMax = 1.0f;
};
