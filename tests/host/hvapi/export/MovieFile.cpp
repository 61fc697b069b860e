#include "MovieFile.h"

#include <QFile>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

namespace {

QImage toPicture(const AVFrame& frame)
{
    QImage picture(frame.width, frame.height, QImage::Format_RGB32);
    SwsContext* scaler = sws_getContext(
        frame.width, frame.height, static_cast<AVPixelFormat>(frame.format), frame.width, frame.height,
        AV_PIX_FMT_0RGB32, SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT, nullptr, nullptr, nullptr);
    std::uint8_t* const rows[1] = {picture.bits()};
    const int strides[1] = {static_cast<int>(picture.bytesPerLine())};
    sws_scale(scaler, frame.data, frame.linesize, 0, frame.height, rows, strides);
    sws_freeContext(scaler);
    return picture;
}

}  // namespace

MovieFile MovieFile::read(const QString& path)
{
    MovieFile movie;
    AVFormatContext* format = nullptr;
    if (avformat_open_input(&format, QFile::encodeName(path).constData(), nullptr, nullptr) < 0) return movie;
    if (avformat_find_stream_info(format, nullptr) >= 0 && format->nb_streams == 1) {
        const AVStream& stream = *format->streams[0];
        const AVCodec* codec = avcodec_find_decoder(stream.codecpar->codec_id);
        AVCodecContext* decoder = avcodec_alloc_context3(codec);
        avcodec_parameters_to_context(decoder, stream.codecpar);
        if (avcodec_open2(decoder, codec, nullptr) >= 0) {
            movie.isReadable = true;
            movie.codec = QString::fromLatin1(codec->name);
            movie.framesPerSecond = av_q2d(stream.avg_frame_rate);
            movie.seconds = format->duration / double(AV_TIME_BASE);
            AVPacket* packet = av_packet_alloc();
            AVFrame* frame = av_frame_alloc();
            bool more = true;
            while (more) {
                more = av_read_frame(format, packet) >= 0;
                avcodec_send_packet(decoder, more ? packet : nullptr);
                av_packet_unref(packet);
                while (avcodec_receive_frame(decoder, frame) >= 0)
                    movie.frames << toPicture(*frame);
            }
            av_frame_free(&frame);
            av_packet_free(&packet);
        }
        avcodec_free_context(&decoder);
    }
    avformat_close_input(&format);
    return movie;
}
