#include "Jpeg2000Stream.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <openjpeg.h>

namespace hvdicom {

namespace {

// A file in memory, as the decoder wants to see it.
struct Source
{
    std::uint8_t const* data;
    std::size_t size;
    std::size_t at;

    static OPJ_SIZE_T read(void* buffer, OPJ_SIZE_T count, void* self)
    {
        auto& source = *static_cast<Source*>(self);
        if (source.at >= source.size) return static_cast<OPJ_SIZE_T>(-1);
        std::size_t const taken = std::min<std::size_t>(count, source.size - source.at);
        std::memcpy(buffer, source.data + source.at, taken);
        source.at += taken;
        return taken;
    }

    static OPJ_OFF_T skip(OPJ_OFF_T count, void* self)
    {
        auto& source = *static_cast<Source*>(self);
        if (count < 0) return -1;
        std::size_t const taken =
            std::min<std::size_t>(static_cast<std::size_t>(count), source.size - source.at);
        if (taken == 0 && count > 0) return -1;
        source.at += taken;
        return static_cast<OPJ_OFF_T>(taken);
    }

    static OPJ_BOOL seek(OPJ_OFF_T to, void* self)
    {
        auto& source = *static_cast<Source*>(self);
        if (to < 0 || static_cast<std::size_t>(to) > source.size) return OPJ_FALSE;
        source.at = static_cast<std::size_t>(to);
        return OPJ_TRUE;
    }
};

void keepMessage(char const* message, void* text)
{
    std::string& kept = *static_cast<std::string*>(text);
    kept = message;
    while (!kept.empty() && (kept.back() == '\n' || kept.back() == ' '))
        kept.pop_back();
}

void dropMessage(char const*, void*) {}

constexpr std::uint8_t fileFormat[] = {0x00, 0x00, 0x00, 0x0C, 0x6A, 0x50, 0x20, 0x20};
constexpr std::uint8_t codeStream[] = {0xFF, 0x4F, 0xFF, 0x51};

template <std::size_t N>
bool beginsWith(std::uint8_t const* data, std::size_t size, std::uint8_t const (&start)[N])
{
    return size >= N && std::equal(start, start + N, data);
}

// Before the decoding the components have no size of their own yet: the image's is asked, and theirs after
// it.
std::string disagreement(opj_image_t const& image, Jpeg2000Frame const& frame, bool isDecoded)
{
    if (image.x1 < image.x0 || image.y1 < image.y0 || image.x1 - image.x0 != frame.columns ||
        image.y1 - image.y0 != frame.rows)
        return "another size than rows and columns";
    if (image.numcomps != frame.samplesPerPixel) return "another number of components than samples per pixel";
    for (OPJ_UINT32 c = 0; c < image.numcomps; ++c) {
        opj_image_comp_t const& component = image.comps[c];
        if (component.dx != 1 || component.dy != 1) return "sub-sampled components";
        if (isDecoded && (component.w != frame.columns || component.h != frame.rows || !component.data))
            return "a component that is not whole";
        if (component.prec < 1 || component.prec > frame.bitsAllocated) return "more bits than allocated";
    }
    return {};
}

template <class T>
void interleave(opj_image_t const& image, std::size_t count, T* target)
{
    for (OPJ_UINT32 c = 0; c < image.numcomps; ++c) {
        OPJ_INT32 const* const from = image.comps[c].data;
        T* to = target + c;
        for (std::size_t i = 0; i < count; ++i, to += image.numcomps)
            *to = static_cast<T>(static_cast<std::uint32_t>(from[i]));
    }
}

}  // namespace

bool beginsJpeg2000(std::uint8_t const* data, std::size_t size)
{
    return beginsWith(data, size, codeStream) || beginsWith(data, size, fileFormat);
}

std::string decodeJpeg2000(std::uint8_t const* data, std::size_t size, Jpeg2000Frame const& frame,
                           void* target)
{
    if (!beginsJpeg2000(data, size)) return "no JPEG 2000 code stream";
    if (frame.bitsAllocated != 8 && frame.bitsAllocated != 16) return "not 8 or 16 bits allocated";
    OPJ_CODEC_FORMAT const format = beginsWith(data, size, fileFormat) ? OPJ_CODEC_JP2 : OPJ_CODEC_J2K;
    std::unique_ptr<opj_codec_t, decltype(&opj_destroy_codec)> const codec(opj_create_decompress(format),
                                                                           &opj_destroy_codec);
    std::unique_ptr<opj_stream_t, decltype(&opj_stream_destroy)> const stream(
        opj_stream_default_create(OPJ_TRUE), &opj_stream_destroy);
    if (!codec || !stream) return "not enough memory";
    std::string message = "unknown reason";
    opj_set_error_handler(codec.get(), &keepMessage, &message);
    opj_set_warning_handler(codec.get(), &dropMessage, nullptr);
    opj_set_info_handler(codec.get(), &dropMessage, nullptr);

    Source source = {data, size, 0};
    opj_stream_set_user_data(stream.get(), &source, nullptr);
    opj_stream_set_user_data_length(stream.get(), size);
    opj_stream_set_read_function(stream.get(), &Source::read);
    opj_stream_set_skip_function(stream.get(), &Source::skip);
    opj_stream_set_seek_function(stream.get(), &Source::seek);

    opj_dparameters_t parameters;
    opj_set_default_decoder_parameters(&parameters);
    if (!opj_setup_decoder(codec.get(), &parameters)) return message;
    opj_image_t* read = nullptr;
    bool const hasHeader = opj_read_header(stream.get(), codec.get(), &read) != OPJ_FALSE;
    std::unique_ptr<opj_image_t, decltype(&opj_image_destroy)> const image(read, &opj_image_destroy);
    if (!hasHeader || !image) return message;
    std::string before = disagreement(*image, frame, false);
    if (!before.empty()) return before;
    if (!opj_decode(codec.get(), stream.get(), image.get()) || !opj_end_decompress(codec.get(), stream.get()))
        return message;
    std::string after = disagreement(*image, frame, true);
    if (!after.empty()) return after;

    auto const count = static_cast<std::size_t>(frame.columns * frame.rows);
    if (frame.bitsAllocated == 8)
        interleave(*image, count, static_cast<std::uint8_t*>(target));
    else
        interleave(*image, count, static_cast<std::uint16_t*>(target));
    return {};
}

}  // namespace hvdicom
