#pragma once

#include "hvapi/hvapi_global.h"

#include <QString>
#include <QtGui/qopengl.h>
#include <memory>

/// The stages of a GL program.
enum ShaderType
{
    FRAGMENT_SHADER = 0,
    VERTEX_SHADER = 1
};

/// A GL program made of named shader sources. A stage without a source is left to the fixed-function
/// pipeline.
///
/// All operations but the constructor expect a current context of the compatibility profile; without one they
/// change nothing and answer false or 0. The program is shared by all contexts that share objects with the
/// one it was made in.
class HVAPI_EXPORT CGLProgram
{
public:
    /// Makes no GL call: an object may be built before any context exists.
    CGLProgram();
    /// Deletes the GL program when a context is current.
    virtual ~CGLProgram();
    CGLProgram(const CGLProgram&) = delete;
    CGLProgram& operator=(const CGLProgram&) = delete;

    /// Compiles `source` and links it into the program under `name`. False when the name is in use already,
    /// or when compiling or linking fails; the program stays as it was. A failure is logged with the driver's
    /// text, at severity 3, once for each text that fails, however often it is tried.
    bool addShader_Source(ShaderType type, QString name, const char* source);
    /// The same, and replaces the source of that name and stage if there is one.
    bool updateShader_Source(ShaderType type, QString name, const char* source);

    /// Makes the program the current one. Without a linked program the fixed-function pipeline is made
    /// current.
    void activate();
    /// Returns to the fixed-function pipeline.
    void deactivate();
    /// The GL name of the linked program; 0 when there is none.
    GLuint getID() const;
    /// True when the program can run in the current GL state; the driver's text of a refusal is logged once.
    bool validateProgram();

private:
    struct Private;
    std::unique_ptr<Private> d;
};
