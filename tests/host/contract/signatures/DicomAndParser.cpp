#include "Signatures.h"
#include "hvdicom/CDicomReader.h"
#include "hvdicom/CHVDcmImage.h"
#include "hvdicom/sortDICOMFileListByPosition.h"
#include "hvparser/CPLSection.h"
#include "hvparser/CPLSequenceInfo.h"
#include "hvparser/CPLSettingsFileWrapper.h"
#include "hvparser/getCCDPixels.h"
#include "hvparser/getFOVName.h"

#include <QByteArray>

using Entries = QMap<QString, SGroupElemInfo>;

using Reader = CDicomReader&;
static_assert(std::is_default_constructible_v<CDicomReader> && std::has_virtual_destructor_v<CDicomReader>);
GIVES(bool, CDicomReader::isDicom(some<char const*>()));
GIVES(tag_estatus, some<Reader>().initDicomImporter(some<QString>()));
GIVES(tag_estatus, some<Reader>().loadEntireDicomInfo());
GIVES(tag_estatus, some<Reader>().readPixelInfo(some<CILImage*>(), some<unsigned long long>()));
GIVES(unsigned long, some<Reader>().getTotalFrames());
GIVES(unsigned long, some<Reader>().getNumberofRows());
GIVES(unsigned long, some<Reader>().getNumberofColumns());
GIVES(int, some<Reader>().getDepth());
GIVES(bool, some<Reader>().getPixelSpacing(some<double&>(), some<double&>()));
GIVES(double, some<Reader>().getSliceSpacing());
GIVES(double, some<Reader>().getSliceThickness());
GIVES(double, some<Reader>().getSlicePosition());
GIVES(bool, some<Reader>().getSliceLocation(some<double&>(), some<double&>(), some<double&>()));
GIVES(QString, some<Reader>().getPatientPosition());
GIVES(QString, some<Reader>().getModalityName());
GIVES(QString, some<Reader>().getPhotometricInterpretation());
GIVES(QString, some<Reader>().getImplementationVersionName());
GIVES(Entries, some<Reader>().getGroupElementInfo());

using Dcm = CHVDcmImage&;
GIVES(bool, CHVDcmImage::isDICOM(some<char const*>()));
GIVES(bool, some<Dcm>().LoadFromDICOMFile(some<QString>()));
GIVES(unsigned long, some<Dcm>().getWidth());
GIVES(unsigned long, some<Dcm>().getHeight());
GIVES(int, some<Dcm>().getDepth());
GIVES(int, some<Dcm>().getActualDepth());
GIVES(unsigned long, some<Dcm>().getFrameCount());
GIVES(int, some<Dcm>().getBytesPerSample());
GIVES(void*, some<Dcm>().get_data(some<unsigned long>()));
GIVES(bool, some<Dcm>().getDicomImage(some<unsigned long>(), some<CILImage&>()));
GIVES(QString, some<Dcm>().getTagValue(some<QString>(), some<QString>()));
GIVES(QList<Entries>, some<Dcm>().getHeaderTagSequence(some<unsigned short>(), some<unsigned short>()));
GIVES(int, some<Dcm>().getPhotometricInterpretation());
GIVES(Entries, some<Dcm>().getGroupElementInfo());

static_assert(std::is_same_v<decltype(SGroupElemInfo{"", "", "", "", ""}), SGroupElemInfo>,
              "five texts: group, element, representation, name, value");
GIVES(QStringList, sortDICOMFileListByPosition(some<QStringList>(), some<QString>()));

using Text = QString const&;

using Section = CPLSection&;
GIVES(tag_estatus, some<Section>().getValue(some<QString>(), some<float*>()));
GIVES(tag_estatus, some<Section>().getValue(some<QString>(), some<double*>()));
GIVES(tag_estatus, some<Section>().getValue(some<QString>(), some<QString*>()));
GIVES(tag_estatus, some<Section>().setValue(some<QString>(), some<QString>()));
GIVES(tag_estatus, some<Section>().addKeyValue(some<QString>(), some<QString>()));
GIVES(tag_estatus, some<Section>().getSectionKey(some<QString*>()));
GIVES(bool, some<Section>().isKeyPresent(some<QString>()));
GIVES(tag_estatus,
      some<Section>().getKeylistFromKeyAndSubkey(some<QString>(), some<QString>(), some<QStringList*>()));

using Click = CPLClickInfo&;
GIVES(tag_estatus, some<Click>().removeSection(some<QString>()));
GIVES(bool, some<Click>().isSectionPresent(some<QString>()));
GIVES(CPLSection*, some<Click>()[some<QString>()]);
GIVES(tag_estatus, some<Click>().getValue(some<QString>(), some<QString>(), some<int*>()));
GIVES(tag_estatus, some<Click>().getValue(some<QString>(), some<QString>(), some<double*>()));
GIVES(tag_estatus, some<Click>().getValue(some<QString>(), some<QString>(), some<QString*>()));

using SequenceInfo = CPLSequenceInfo&;
GIVES(bool, some<SequenceInfo>().isSectionPresent(some<QString>()));
GIVES(CPLSection*, some<SequenceInfo>()[some<QString>()]);
GIVES(QString, some<SequenceInfo>().getSequenceInfoPath());
GIVES(tag_estatus, some<SequenceInfo>().saveFile(some<QString>()));

static_assert(std::is_base_of_v<CPLClickInfo, CPLSettingsFileWrapper>);
using Database = CPLSettingsFileWrapper&;
GIVES(tag_estatus, some<Database>().load(some<Text>()));
GIVES(tag_estatus, some<Database>().save());
GIVES(void, some<Database>().setMenuNameTag(some<Text>()));
GIVES(void, some<Database>().setFileNameTag(some<Text>()));
GIVES(void, some<Database>().setAutoMenuNameTag(some<Text>()));
GIVES(QStringList, some<Database>().getMenuNames());
GIVES(QStringList, some<Database>().getMenuNames(some<Text>()));
GIVES(QString, some<Database>().getFileNameForMenuName(some<Text>(), some<QString>()));
GIVES(tag_estatus, some<Database>().setFileNameForMenuName(some<Text>(), some<Text>()));
GIVES(tag_estatus, some<Database>().addSection(some<Text>(), some<Text>(), some<Text>()));
GIVES(CPLSection*, some<Database>().getSectionByMenuName(some<Text>()));
GIVES(QString, some<Database>().getNextAutoMenuName());

GIVES(int, getCCDPixels(some<QString&>(), some<QString>(), some<QString>()));
GIVES(tag_estatus, getFOVName(some<CPLClickInfo*>(), some<double>(), some<QByteArray&>()));
