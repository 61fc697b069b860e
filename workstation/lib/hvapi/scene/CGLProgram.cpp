#include "hvapi/scene/CGLProgram.h"

#include "hvutils/CHVSLog.h"

#include <QByteArray>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QSet>
#include <map>
#include <utility>

namespace {

/// The functions of the current context, or null when it knows no shaders or there is none.
QOpenGLFunctions* shaderFunctions()
{
    QOpenGLContext* context = QOpenGLContext::currentContext();
    QOpenGLFunctions* f = context ? context->functions() : nullptr;
    return f && f->hasOpenGLFeature(QOpenGLFunctions::Shaders) ? f : nullptr;
}

GLenum glType(ShaderType type)
{
    return type == FRAGMENT_SHADER ? GL_FRAGMENT_SHADER : GL_VERTEX_SHADER;
}

QString shaderText(QOpenGLFunctions& f, GLuint shader)
{
    GLint length = 0;
    f.glGetShaderiv(shader, GL_INFO_LOG_LENGTH, &length);
    if (length <= 1) return QString();
    QByteArray text(length, '\0');
    GLsizei written = 0;
    f.glGetShaderInfoLog(shader, length, &written, text.data());
    return QString::fromUtf8(text.left(written)).trimmed();
}

QString programText(QOpenGLFunctions& f, GLuint program)
{
    GLint length = 0;
    f.glGetProgramiv(program, GL_INFO_LOG_LENGTH, &length);
    if (length <= 1) return QString();
    QByteArray text(length, '\0');
    GLsizei written = 0;
    f.glGetProgramInfoLog(program, length, &written, text.data());
    return QString::fromUtf8(text.left(written)).trimmed();
}

void logError(const QString& message)
{
    getLogObject()->log(message, QString(), 0, QString(), CHVSLog::eError, false);
}

}  // namespace

struct CGLProgram::Private
{
    using Key = std::pair<int, QString>;
    struct Shader
    {
        GLuint id = 0;
        QByteArray source;
    };

    std::map<Key, Shader> shaders;
    GLuint program = 0;
    QSet<QByteArray> failures;  // what was logged already
    QByteArray brokenSource;    // the last text that did not compile: the answer is known
    int brokenType = 0;

    void logOnce(const QString& message, const QByteArray& key)
    {
        if (failures.contains(key)) return;
        failures.insert(key);
        logError(message);
    }

    GLuint compile(QOpenGLFunctions& f, ShaderType type, const QString& name, const QByteArray& source)
    {
        if (type == brokenType && !brokenSource.isEmpty() && source == brokenSource) return 0;
        const GLuint shader = f.glCreateShader(glType(type));
        if (!shader) return 0;
        const char* text = source.constData();
        const GLint length = source.size();
        f.glShaderSource(shader, 1, &text, &length);
        f.glCompileShader(shader);
        GLint compiled = GL_FALSE;
        f.glGetShaderiv(shader, GL_COMPILE_STATUS, &compiled);
        if (compiled) return shader;
        logOnce(
            QStringLiteral("The shader \"%1\" could not be compiled: %2").arg(name, shaderText(f, shader)),
            QByteArrayLiteral("compile ") + QByteArray::number(type) + ' ' + source);
        brokenSource = source;
        brokenType = type;
        f.glDeleteShader(shader);
        return 0;
    }

    /// All stored shaders but that of `replaced`, and `added`. 0 on failure.
    GLuint link(QOpenGLFunctions& f, const Key& replaced, GLuint added, const QByteArray& addedSource)
    {
        const GLuint candidate = f.glCreateProgram();
        if (!candidate) return 0;
        f.glAttachShader(candidate, added);
        for (const auto& entry : shaders)
            if (entry.first != replaced) f.glAttachShader(candidate, entry.second.id);
        f.glLinkProgram(candidate);
        GLint linked = GL_FALSE;
        f.glGetProgramiv(candidate, GL_LINK_STATUS, &linked);
        if (linked) return candidate;
        logOnce(QStringLiteral("The shader \"%1\" could not be linked: %2")
                    .arg(replaced.second, programText(f, candidate)),
                QByteArrayLiteral("link ") + QByteArray::number(replaced.first) + ' ' + addedSource);
        f.glDeleteProgram(candidate);
        return 0;
    }

    bool put(ShaderType type, const QString& name, const QByteArray& source)
    {
        QOpenGLFunctions* f = shaderFunctions();
        if (!f) return false;
        const Key key(type, name);
        const auto former = shaders.find(key);
        if (program && former != shaders.end() && former->second.source == source) return true;
        const GLuint shader = compile(*f, type, name, source);
        if (!shader) return false;
        const GLuint linked = link(*f, key, shader, source);
        if (!linked) {
            f->glDeleteShader(shader);
            return false;
        }
        if (former != shaders.end()) f->glDeleteShader(former->second.id);
        if (program) f->glDeleteProgram(program);
        shaders[key] = Shader{shader, source};
        program = linked;
        return true;
    }
};

CGLProgram::CGLProgram()
    : d(std::make_unique<Private>())
{}

CGLProgram::~CGLProgram()
{
    QOpenGLFunctions* f = shaderFunctions();
    if (!f) return;
    if (d->program) f->glDeleteProgram(d->program);
    for (const auto& entry : d->shaders)
        f->glDeleteShader(entry.second.id);
}

bool CGLProgram::addShader_Source(ShaderType type, QString name, const char* source)
{
    if (!source || d->shaders.count(Private::Key(type, name))) return false;
    return d->put(type, name, QByteArray(source));
}

bool CGLProgram::updateShader_Source(ShaderType type, QString name, const char* source)
{
    return source && d->put(type, name, QByteArray(source));
}

void CGLProgram::activate()
{
    if (QOpenGLFunctions* f = shaderFunctions()) f->glUseProgram(d->program);
}

void CGLProgram::deactivate()
{
    if (QOpenGLFunctions* f = shaderFunctions()) f->glUseProgram(0);
}

GLuint CGLProgram::getID() const
{
    return d->program;
}

bool CGLProgram::validateProgram()
{
    QOpenGLFunctions* f = shaderFunctions();
    if (!f || !d->program) return false;
    f->glValidateProgram(d->program);
    GLint valid = GL_FALSE;
    f->glGetProgramiv(d->program, GL_VALIDATE_STATUS, &valid);
    if (valid) return true;
    const QString text = programText(*f, d->program);
    d->logOnce(QStringLiteral("A shader program can't run: %1").arg(text), "validate " + text.toUtf8());
    return false;
}
