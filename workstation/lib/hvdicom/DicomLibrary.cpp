#include "DicomLibrary.h"

#include "DcmtkLog.h"
#include "Jpeg2000Codec.h"
#include "hvutils/CHVSLog.h"

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dcdict.h>
#include <dcmtk/dcmdata/dcrledrg.h>
#include <dcmtk/dcmjpeg/djdecode.h>
#include <dcmtk/dcmjpls/djdecode.h>

#include <QString>

namespace hvdicom {

namespace {

class Library
{
public:
    Library()
    {
        routeDcmtkLog();
        DJDecoderRegistration::registerCodecs();
        DJLSDecoderRegistration::registerCodecs();
        DcmRLEDecoderRegistration::registerCodecs();
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
        DcmRLEDecoderRegistration::cleanup();
        DJLSDecoderRegistration::cleanup();
        DJDecoderRegistration::cleanup();
        endDcmtkLog();
    }

    Library(Library const&) = delete;
    Library& operator=(Library const&) = delete;

private:
    Jpeg2000Codec m_jpeg2000;
};

}  // namespace

void startDicom()
{
    static Library const library;
}

}  // namespace hvdicom
