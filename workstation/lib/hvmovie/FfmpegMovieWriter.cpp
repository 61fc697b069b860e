#include "lib/hvmovie/FfmpegMovieWriter.h"

#include <QFile>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

#include <cstring>

namespace {

// As good as the eye can tell, in each encoder's own measure.
constexpr int kQuantiser = 2;
constexpr const char* kConstantRateFactor = "17";
constexpr int kMostRepeats = 8;

struct FormatDeleter
{
    void operator()(AVFormatContext* format) const
    {
        if (format->pb) avio_closep(&format->pb);
        avformat_free_context(format);
    }
};
struct CodecDeleter
{
    void operator()(AVCodecContext* codec) const { avcodec_free_context(&codec); }
};
struct FrameDeleter
{
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};
struct PacketDeleter
{
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};
struct ScalerDeleter
{
    void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
};

/// How often each frame is written so that the encoder takes the rate: MPEG-1 knows 30 frames a second and
/// not 15. 0 when no repetition helps.
int repeatsFor(const AVCodec& codec, int framesPerSecond, int least)
{
    if (!codec.supported_framerates) return 1;
    for (int repeats = 1; repeats <= kMostRepeats; ++repeats) {
        if (framesPerSecond * repeats < least) continue;  // listed, and refused all the same
        for (const AVRational* rate = codec.supported_framerates; rate->num != 0; ++rate)
            if (av_cmp_q(*rate, AVRational{framesPerSecond * repeats, 1}) == 0) return repeats;
    }
    return 0;
}

/// The picture with its last column and row repeated where a side is odd.
QImage withEvenSides(const QImage& picture)
{
    const QSize even(picture.width() + picture.width() % 2, picture.height() + picture.height() % 2);
    if (even == picture.size()) return picture;
    QImage padded(even, QImage::Format_RGB32);
    for (int y = 0; y < even.height(); ++y) {
        auto* to = reinterpret_cast<QRgb*>(padded.scanLine(y));
        const auto* from =
            reinterpret_cast<const QRgb*>(picture.constScanLine(std::min(y, picture.height() - 1)));
        std::memcpy(to, from, sizeof(QRgb) * static_cast<std::size_t>(picture.width()));
        if (even.width() > picture.width()) to[picture.width()] = from[picture.width() - 1];
    }
    return padded;
}

}  // namespace

struct FfmpegMovieWriter::Private
{
    MovieKind kind;
    int framesPerSecond = 0;
    int repeats = 1;
    QSize size;
    std::int64_t next = 0;  ///< time of the next frame, in frames
    QString failure;
    std::unique_ptr<AVFormatContext, FormatDeleter> format;
    std::unique_ptr<AVCodecContext, CodecDeleter> codec;
    std::unique_ptr<AVFrame, FrameDeleter> frame;
    std::unique_ptr<AVPacket, PacketDeleter> packet;
    std::unique_ptr<SwsContext, ScalerDeleter> scaler;
    AVStream* stream = nullptr;

    /// True for success; otherwise keeps the library's words.
    bool check(int code, const char* what);
    bool start(const QSize& pictureSize);
    bool encode(const AVFrame* picture);
};

bool FfmpegMovieWriter::Private::check(int code, const char* what)
{
    if (code >= 0) return true;
    char words[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, words, sizeof words);
    failure = QStringLiteral("%1: %2").arg(QLatin1String(what), QString::fromLocal8Bit(words));
    return false;
}

bool FfmpegMovieWriter::Private::start(const QSize& pictureSize)
{
    const AVCodec* encoder = avcodec_find_encoder_by_name(kind.encoder);
    if (!encoder) return check(AVERROR_ENCODER_NOT_FOUND, kind.encoder);
    repeats = repeatsFor(*encoder, framesPerSecond, kind.leastFramesPerSecond);
    if (repeats == 0) return check(AVERROR(EINVAL), "the number of frames a second");

    size = pictureSize;
    stream = avformat_new_stream(format.get(), nullptr);
    codec.reset(avcodec_alloc_context3(encoder));
    frame.reset(av_frame_alloc());
    packet.reset(av_packet_alloc());
    if (!stream || !codec || !frame || !packet) return check(AVERROR(ENOMEM), kind.encoder);

    codec->width = size.width();
    codec->height = size.height();
    codec->pix_fmt = AV_PIX_FMT_YUV420P;
    codec->time_base = AVRational{1, framesPerSecond * repeats};
    codec->framerate = AVRational{framesPerSecond * repeats, 1};
    codec->gop_size = framesPerSecond * repeats;
    codec->color_range = AVCOL_RANGE_MPEG;
    codec->colorspace = AVCOL_SPC_SMPTE170M;
    codec->thread_count = 0;
    stream->time_base = codec->time_base;
    stream->avg_frame_rate = codec->framerate;
    if (std::strcmp(kind.encoder, "libx264") == 0) {
        av_opt_set(codec->priv_data, "crf", kConstantRateFactor, 0);
        av_opt_set(codec->priv_data, "preset", "medium", 0);
    } else {
        codec->flags |= AV_CODEC_FLAG_QSCALE;
        codec->global_quality = FF_QP2LAMBDA * kQuantiser;
    }
    if (format->oformat->flags & AVFMT_GLOBALHEADER) codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;

    if (!check(avcodec_open2(codec.get(), encoder, nullptr), kind.encoder)) return false;
    if (!check(avcodec_parameters_from_context(stream->codecpar, codec.get()), kind.muxer)) return false;
    if (!check(avformat_write_header(format.get(), nullptr), kind.muxer)) return false;

    frame->format = codec->pix_fmt;
    frame->width = size.width();
    frame->height = size.height();
    if (!check(av_frame_get_buffer(frame.get(), 0), kind.encoder)) return false;
    scaler.reset(sws_getContext(size.width(), size.height(), AV_PIX_FMT_0RGB32, size.width(), size.height(),
                                AV_PIX_FMT_YUV420P, SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INP,
                                nullptr, nullptr, nullptr));
    return scaler ? true : check(AVERROR(ENOMEM), "the conversion of colours");
}

bool FfmpegMovieWriter::Private::encode(const AVFrame* picture)
{
    if (!check(avcodec_send_frame(codec.get(), picture), kind.encoder)) return false;
    for (;;) {
        const int code = avcodec_receive_packet(codec.get(), packet.get());
        if (code == AVERROR(EAGAIN) || code == AVERROR_EOF) return true;
        if (!check(code, kind.encoder)) return false;
        if (packet->duration == 0) packet->duration = 1;
        av_packet_rescale_ts(packet.get(), codec->time_base, stream->time_base);
        packet->stream_index = stream->index;
        if (!check(av_interleaved_write_frame(format.get(), packet.get()), kind.muxer)) return false;
    }
}

FfmpegMovieWriter::FfmpegMovieWriter(const MovieKind& kind)
    : d(std::make_unique<Private>())
{
    d->kind = kind;
}

FfmpegMovieWriter::~FfmpegMovieWriter() = default;

bool FfmpegMovieWriter::open(const QString& file, const sMovieDetails& details)
{
    d->framesPerSecond = details.m_nFramesPerSecond;
    const QByteArray name = QFile::encodeName(file);
    AVFormatContext* format = nullptr;
    if (!d->check(avformat_alloc_output_context2(&format, nullptr, d->kind.muxer, name.constData()),
                  d->kind.muxer))
        return false;
    d->format.reset(format);
    // With the protocol in front, or a colon in a name would be taken for one.
    return d->check(avio_open(&format->pb, "file:" + name, AVIO_FLAG_WRITE), "the file");
}

bool FfmpegMovieWriter::append(const QImage& picture)
{
    QImage rgb = picture.convertToFormat(QImage::Format_RGB32);
    if (d->kind.needsEvenSides) rgb = withEvenSides(rgb);
    if (!d->codec && !d->start(rgb.size())) return false;
    if (rgb.size() != d->size) return d->check(AVERROR(EINVAL), "the size of a frame");

    if (!d->check(av_frame_make_writable(d->frame.get()), d->kind.encoder)) return false;
    const std::uint8_t* const rows[1] = {rgb.constBits()};
    const int strides[1] = {static_cast<int>(rgb.bytesPerLine())};
    sws_scale(d->scaler.get(), rows, strides, 0, rgb.height(), d->frame->data, d->frame->linesize);
    for (int i = 0; i < d->repeats; ++i) {
        d->frame->pts = d->next++;
        d->frame->quality = d->codec->global_quality;
        if (!d->encode(d->frame.get())) return false;
    }
    return true;
}

bool FfmpegMovieWriter::finish()
{
    if (!d->codec) return d->check(AVERROR(EINVAL), "a movie without a frame");
    if (!d->encode(nullptr)) return false;
    if (!d->check(av_write_trailer(d->format.get()), d->kind.muxer)) return false;
    return d->check(avio_closep(&d->format->pb), "the file");
}

QString FfmpegMovieWriter::reason() const
{
    return d->failure;
}
