#include "Signatures.h"
#include "hvimage/CIL1DData.h"
#include "hvimage/CILHistogram.h"
#include "hvimage/CILImage.h"
#include "hvimage/CILMathFns.h"
#include "hvimage/CILPalette.h"
#include "hvimage/CSLComposite.h"
#include "hvimage/HV_ConvertQImageToCILImage.h"
#include "hvimage/HV_GrayMinMax.h"
#include "hvimage/getNiceRangeForDisplay.h"

#include <QImage>

static_assert(eTypeUInt8 == 1 && eTypeUInt16 == 2 && eTypeUInt32 == 3 && eTypeFloat == 4 &&
              eTypeDouble == 5 && eTypeInt8 == 6 && eTypeInt16 == 7);
static_assert(eResampleAreaAverage == 4 && eRoundNearest == 2);
static_assert(eColorTableGrays == 0 && eColorTableRainbow == 1 && eColorTableRed == 8 &&
              eColorTableGreen == 9 && eColorTableBlue == 10 && eColorTableCyan == 11 &&
              eColorTableYellow == 12 && eColorTableMagenta == 13 && eColorTableOrange == 14 &&
              eColorTableBlueYellow == 23 && eColorTableGreenPink == 24 && eColorTableEosB == 25 &&
              eColorTableJet == 26);

using Base = CILImageBase&;
GIVES(HVSDataTypes, some<Base>().get_datatype());
GIVES(long, some<Base>().getWidth());
GIVES(long, some<Base>().getHeight());
GIVES(long, some<Base>().get_width());
GIVES(long, some<Base>().get_height());
GIVES(void*, some<Base>().get_data());
GIVES(bool, some<Base>().resize(some<long>(), some<long>()));
GIVES(bool, some<Base>().resize(some<long>(), some<long>(), 0));
GIVES(bool, some<Base>().resize(some<CILImageBase const&>(), some<double>()));
GIVES(bool, some<Base>().setImageData(some<void const*>()));
GIVES(bool, some<Base>().InitWithType(some<HVSDataTypes>(), some<long>(), some<long>()));
GIVES(int, CILImageBase::get_reqsizefortype(some<HVSDataTypes>()));

static_assert(std::is_base_of_v<CILImageBase, CILImage> && std::is_copy_constructible_v<CILImage>);
using Image = CILImage&;
GIVES(int, CILImage::canInitFromFile(some<char const*>()));
GIVES(bool, some<Image>().LoadFromTIFFFile(some<char const*>(), some<int>()));
GIVES(int, some<Image>().getImageCount());
GIVES(void const*, some<Image>().getFrameData(some<int>()));
GIVES(float, some<Image>().getXResolution());
GIVES(float, some<Image>().getYResolution());
GIVES(int, some<Image>().getResolutionUnit());
GIVES(long, some<Image>().getOriginalWidth());
GIVES(long, some<Image>().getOriginalHeight());
GIVES(bool,
      some<Image>().InitFromDICOMFile(some<char*>(), some<unsigned>(), some<unsigned>(), some<unsigned>()));
GIVES(bool, some<Image>().isRGBImageFormat());
GIVES(bool, some<Image>().initWithData(some<HVSDataTypes>(), some<long>(), some<long>(), some<void*>()));
GIVES(bool, some<Image>().ChangeType(some<HVSDataTypes>()));
GIVES(void, some<Image>().Mirror());
GIVES(void, some<Image>().Flip());
GIVES(bool, some<Image>().downSample(some<int>(), some<int>(), static_cast<IL_RESAMPLEMODES>(4)));
GIVES(void, some<Image>().RefreshImageStats());
GIVES(double, some<Image>().getMin());
GIVES(double, some<Image>().getMax());
GIVES(double, some<Image>().Min());
GIVES(double, some<Image>().Max());
GIVES(bool, some<Image>().Threshold(some<float>(), some<CILImage&>()));
GIVES(bool, some<Image>().Dilate(some<int>(), some<int>()));
GIVES(bool, some<Image>().Erode(some<int>(), some<int>()));
GIVES(bool, some<Image>().saveAsTIFF(some<char const*>()));
GIVES(bool, some<Image>().Histogram(some<CILHistogram&>()));
GIVES(CILPalette, some<Image>().getPalette());
GIVES(void, some<Image>().setPalette(some<CILPalette const&>()));

static_assert(std::is_base_of_v<CIL1DData, CILHistogram>);
using Histogram = CILHistogram&;
GIVES(void, some<Histogram>().setImageMin(some<double>()));
GIVES(void, some<Histogram>().setImageMax(some<double>()));
GIVES(void, some<Histogram>().setMaxBins(some<unsigned long long>()));
GIVES(bool, some<Histogram>().integrate(some<CILHistogram*>()));
using Row = CIL1DData&;
GIVES(bool, some<Row>().initWithArray(some<void*>(), some<long>(), some<HVSDataTypes>()));
GIVES(bool, some<Row>().getData(some<HVSDataTypes>(), some<void*>()));
GIVES(double, some<Row>().findLevel(some<float>()));
GIVES(double, some<Row>().Min());
GIVES(double, some<Row>().Max());

GIVES(long, CILMathFns::round(some<double>(), static_cast<eRoundingStyle>(2)));
GIVES(double, CSLComposite::AutomaticThresholdOtsuNoLog(some<CILImage&>()));

using Palette = CILPalette&;
static_assert(std::is_default_constructible_v<CILPalette> && std::is_copy_constructible_v<CILPalette>);
GIVES(CILPalette&, some<Palette>() = some<CILPalette const&>());
GIVES(void, some<Palette>().setColorTableType(some<HVS_COLORTABLE_TYPES>(), some<float>(), some<float>()));
GIVES(void, some<Palette>().setReversed(some<int>()));
GIVES(int, some<Palette>().reversed());
GIVES(void, some<Palette>().setLogScale(some<int>()));
GIVES(void, some<Palette>().SetImageMinMax(some<double>(), some<double>()));
GIVES(unsigned char*, some<Palette>().getColorTableBuffer());
GIVES(int, some<Palette>().getMaxIndex());
GIVES(void, some<Palette>().GetRGBForImageValue(some<double>(), some<double*>(), some<double*>(),
                                                some<double*>(), some<double*>()));

GIVES(void, getNiceRangeForDisplay(some<double>(), some<double>(), some<int>(), some<tagHVSDisplayRange*>()));
GIVES(void, HV_GrayMinMax(some<CILImage*>(), some<double*>(), some<double*>(), some<double*>()));
GIVES(bool, HV_ConvertQImageToCILImage(some<QImage&>(), some<CILImage&>(), some<HVSDataTypes>()));
