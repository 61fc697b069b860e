#include "DicomLibrary.h"

#include "CheckedJpegCodec.h"
#include "DcmtkLog.h"
#include "FrameCodec.h"
#include "hvutils/CHVSLog.h"

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dcdict.h>
#include <dcmtk/dcmjpeg/djcparam.h>
#include <dcmtk/dcmjpeg/djdecbas.h>
#include <dcmtk/dcmjpeg/djdecext.h>
#include <dcmtk/dcmjpeg/djdeclol.h>
#include <dcmtk/dcmjpeg/djdecpro.h>
#include <dcmtk/dcmjpeg/djdecsps.h>
#include <dcmtk/dcmjpeg/djdecsv1.h>
#include <dcmtk/dcmjpls/djcodecd.h>
#include <dcmtk/dcmjpls/djcparam.h>

#include <QString>
#include <memory>
#include <vector>

namespace hvdicom {

namespace {

class Library
{
public:
    Library()
    {
        routeDcmtkLog();
        addJpeg<DJDecoderBaseline>(m_jpegParameter);
        addJpeg<DJDecoderExtended>(m_jpegParameter);
        addJpeg<DJDecoderSpectralSelection>(m_jpegParameter);
        addJpeg<DJDecoderProgressive>(m_jpegParameter);
        addJpeg<DJDecoderLossless>(m_jpegParameter);
        addJpeg<DJDecoderP14SV1>(m_jpegParameter);
        addJpeg<DJLSLosslessDecoder>(m_jpegLsParameter);
        addJpeg<DJLSNearLosslessDecoder>(m_jpegLsParameter);
        m_rle.registerWithLibrary();
        m_jpeg2000.registerWithLibrary();
        if (!dcmDataDict.isDictionaryLoaded())
            getLogObject()->log(
                QStringLiteral(
                    "The DICOM data dictionary was not found: DICOM files cannot be read. It is part of "
                    "the package libdcmtk17, or is named by the environment variable DCMDICTPATH."),
                QStringLiteral("hvdicom"), 0, QString(), CHVSLog::eError, false);
    }

    ~Library()
    {
        m_jpeg2000.withdraw();
        m_rle.withdraw();
        for (auto const& codec : m_jpeg)
            codec->withdraw();
        endDcmtkLog();
    }

    Library(Library const&) = delete;
    Library& operator=(Library const&) = delete;

private:
    template <class Decoder>
    void addJpeg(DcmCodecParameter const& parameter)
    {
        m_jpeg.push_back(std::make_unique<CheckedJpegCodec>(std::make_unique<Decoder>(), &parameter));
        m_jpeg.back()->registerWithLibrary();
    }

    DJCodecParameter m_jpegParameter{ECC_lossyYCbCr, EDC_photometricInterpretation, EUC_default, EPC_default};
    DJLSCodecParameter m_jpegLsParameter;
    std::vector<std::unique_ptr<CheckedJpegCodec>> m_jpeg;
    RleCodec m_rle;
    Jpeg2000Codec m_jpeg2000;
};

}  // namespace

void startDicom()
{
    static Library const library;
}

}  // namespace hvdicom
