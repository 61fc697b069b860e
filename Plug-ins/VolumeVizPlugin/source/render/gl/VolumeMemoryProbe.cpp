#include "render/gl/VolumeMemoryProbe.h"

#include "hvutils/CHVUtilityFns.h"
#include "render/gl/GlewSupport.h"
#include "render/gl/OGL_INFO.h"
#include "volume/logic/MemoryEstimate.h"

#include <QOpenGLContext>
#include <QSurface>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <memory>

namespace {

constexpr float leastVersion = 2.0F;
constexpr int mostStaleErrors = 64;

/// Remembers the current context and makes it current again at the end.
class CurrentContextScope
{
public:
    CurrentContextScope()
        : m_context(QOpenGLContext::currentContext())
        , m_surface(m_context != nullptr ? m_context->surface() : nullptr)
    {}

    ~CurrentContextScope()
    {
        if (m_context != nullptr && m_surface != nullptr)
            m_context->makeCurrent(m_surface);
        else if (QOpenGLContext* const left = QOpenGLContext::currentContext())
            left->doneCurrent();
    }

    CurrentContextScope(const CurrentContextScope&) = delete;
    CurrentContextScope& operator=(const CurrentContextScope&) = delete;

private:
    QOpenGLContext* const m_context;
    QSurface* const m_surface;
};

struct Freed
{
    void operator()(void* memory) const { std::free(memory); }
};

using Buffer = std::unique_ptr<void, Freed>;

// What glTexImage reads of the buffer. The estimate is rounded in single precision and can lie a little
// below.
std::uint64_t bytesRead(unsigned a, unsigned b, int depth, unsigned target)
{
    constexpr int rgba = 4;
    if (target == GL_TEXTURE_1D) return viz::volumeBytes(a, 1, rgba);
    if (target == GL_TEXTURE_2D) return viz::volumeBytes(a, b, rgba);
    return viz::volumeBytes(a, b, viz::textureDepthToTry(depth));
}

// Its pages stay untouched: the driver only reads it.
Buffer allocate(unsigned a, unsigned b, int depth, unsigned target, float factor)
{
    const std::uint64_t bytes =
        std::max(viz::memoryToTry(a, b, depth, factor), bytesRead(a, b, depth, target));
    constexpr std::uint64_t most = static_cast<std::uint64_t>(std::numeric_limits<std::ptrdiff_t>::max());
    return Buffer(bytes < most ? std::malloc(static_cast<std::size_t>(std::max<std::uint64_t>(bytes, 1)))
                               : nullptr);
}

GLsizei side(unsigned pixels)
{
    return static_cast<GLsizei>(std::min<unsigned>(pixels, std::numeric_limits<GLsizei>::max()));
}

void upload(unsigned a, unsigned b, int depth, unsigned target, const void* data)
{
    if (target == GL_TEXTURE_1D)
        glTexImage1D(target, 0, GL_RGBA, side(a), 0, GL_RGBA, GL_UNSIGNED_BYTE, data);
    else if (target == GL_TEXTURE_2D)
        glTexImage2D(target, 0, GL_RGBA, side(a), side(b), 0, GL_RGBA, GL_UNSIGNED_BYTE, data);
    else
        glew::texImage3D(target, 0, GL_INTENSITY, side(a), side(b), viz::textureDepthToTry(depth), 0,
                         GL_LUMINANCE, GL_UNSIGNED_BYTE, data);
}

// A stale error must not stand before the one that counts.
void drainErrors()
{
    int left = mostStaleErrors;
    while (left > 0 && glGetError() != GL_NO_ERROR)
        --left;
}

bool cardTakes(unsigned a, unsigned b, int depth, unsigned target, const void* data)
{
    glew::initialise();
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    drainErrors();

    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(target, texture);
    upload(a, b, depth, target, data);
    const bool taken = glGetError() != GL_OUT_OF_MEMORY;
    if (glIsTexture(texture) == GL_TRUE) glDeleteTextures(1, &texture);
    return taken;
}

}  // namespace

bool checkVolumeMemory(unsigned a, unsigned b, int depth, unsigned target, float factor)
{
    if (CHVUtilityFns::isMemoryLoadLimit()) return false;

    const CurrentContextScope restored;
    OGL_INFO info;
    if (info.openGLVersion() < leastVersion) return false;
    const Buffer buffer = allocate(a, b, depth, target, factor);
    return buffer != nullptr && cardTakes(a, b, depth, target, buffer.get());
}
