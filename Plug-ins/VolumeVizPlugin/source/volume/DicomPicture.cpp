#include "volume/DicomPicture.h"

#include "hvimage/CILImage.h"
#include "volume/DicomAttributes.h"
#include "volume/VoxelBlock.h"
#include "volume/logic/SourceRange.h"

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dcdeftag.h>
#include <dcmtk/dcmdata/dcfilefo.h>
#include <dcmtk/dcmdata/dcxfer.h>
#include <dcmtk/dcmimgle/dcmimage.h>

namespace {

constexpr unsigned long acrNemaCompatible = 1;
// Without it all frames are copied, or decompressed, for the sake of one.
constexpr unsigned long onlyTheFramesAskedFor = CIF_UsePartialAccessToPixelData;
// A decoded sample and its copy on the way out take at most four bytes each.
constexpr std::uint64_t bytesPerSample = 8;

DicomPicture::State stateOf(DcmFileFormat& file, unsigned long frames)
{
    const auto columns = dicomSide(file, DCM_Columns);
    const auto rows = dicomSide(file, DCM_Rows);
    const std::int64_t bits = dicomInteger(file, DCM_BitsAllocated).value_or(0);
    const std::int64_t perPixel = dicomInteger(file, DCM_SamplesPerPixel).value_or(1);
    if (!columns || !rows || bits < 1 || perPixel < 1) return DicomPicture::State::Good;  // refused by DCMTK

    const std::uint64_t inFile = dicomFrames(file);
    const std::uint64_t perFrame = std::uint64_t{*columns} * *rows * static_cast<std::uint64_t>(perPixel);
    const std::uint64_t decoded = frames == 0 ? inFile : frames;
    if (!fitsIntoMemory(viz::saturatedProduct({perFrame, decoded, bytesPerSample})))
        return DicomPicture::State::TooLarge;

    DcmDataset& data = *file.getDataset();
    if (DcmXfer(data.getOriginalXfer()).isEncapsulated()) return DicomPicture::State::Good;
    DcmElement* pixels = nullptr;
    if (data.findAndGetElement(DCM_PixelData, pixels).bad() || pixels == nullptr)
        return DicomPicture::State::Good;  // refused by DCMTK
    const std::uint64_t needed =
        viz::saturatedProduct({perFrame, inFile, static_cast<std::uint64_t>(bits)}) / 8;
    return pixels->getLength(data.getOriginalXfer()) < needed ? DicomPicture::State::TooShort
                                                              : DicomPicture::State::Good;
}

}  // namespace

DicomPicture::DicomPicture(DcmFileFormat& file, unsigned long frames)
    : m_state(stateOf(file, frames))
{
    if (m_state != State::Good) return;
    DcmDataset* data = file.getDataset();
    const E_TransferSyntax syntax = data->getOriginalXfer();
    // Some decoders leave the data set behind in a state in which it does not decode again.
    if (DcmXfer(syntax).isEncapsulated()) {
        m_compressed = std::make_unique<DcmDataset>(*data);
        data = m_compressed.get();
    }
    const unsigned long flags = acrNemaCompatible | (frames == 0 ? 0 : onlyTheFramesAskedFor);
    m_image = std::make_unique<DicomImage>(data, syntax, flags, 0, frames);
}

DicomPicture::~DicomPicture() = default;

bool DicomPicture::isMonochrome() const
{
    if (!m_image) return false;
    const EP_Interpretation kind = m_image->getPhotometricInterpretation();
    return kind == EPI_Monochrome1 || kind == EPI_Monochrome2;
}

int DicomPicture::depth() const
{
    return m_image ? static_cast<int>(m_image->getDepth()) : 0;
}

bool DicomPicture::copyTo(CILImage& image) const
{
    const int bits = depth();
    if (bits < 1 || bits > 32) return false;
    const int outputBits = bits > 16 ? 32 : bits > 8 ? 16 : 8;
    const HVSDataTypes type = bits > 16 ? eTypeUInt32 : bits > 8 ? eTypeUInt16 : eTypeUInt8;
    const void* const samples = m_image->getOutputData(outputBits, 0, 0);
    return samples != nullptr &&
           image.initWithData(type, static_cast<long>(m_image->getWidth()),
                              static_cast<long>(m_image->getHeight()), const_cast<void*>(samples));
}
