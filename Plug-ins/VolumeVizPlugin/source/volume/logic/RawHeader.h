#pragma once

#include "volume/logic/LoadSize.h"

#include <QByteArray>

#include <cstdint>

// The optional text header of a RAW volume file (.raw, .vox).
namespace viz {

/// What a header says, or the default where it says nothing.
struct RawHeader
{
    int columns = 0;  ///< as written, negative ones included
    int rows = 0;
    int frames = 0;
    std::int64_t size = 0;   ///< bytes in front of the voxels; 0 without an end marker
    QByteArray depth = "8";  ///< bits of a voxel as written: "8" or "16" if all is well
    RawSpacing spacing;      ///< mm
    bool isSigned = false;

    bool sizeSeen = false;    ///< a good "VolumeSize" line
    bool depthSeen = false;   ///< a good "VoxelSize" line
    bool formatSeen = false;  ///< a "Field" line with a "Format" token and its value

    /// Nothing is left to ask the user for; spacing is optional.
    bool isComplete() const { return sizeSeen && depthSeen && formatSeen; }
};

/// Takes a file's bytes in pieces of any size and gathers its header. Lines count as a text file delivers
/// them:
/// "\r\n" is one line feed, so the size found is shorter than the file's own by one byte for each such line.
/// The memory it needs does not grow with the file, whatever the file holds.
class RawHeaderParser
{
public:
    /// The next bytes of the file.
    /// @return true once the end of the header is certain; bytes after that are not looked at
    bool feed(const char* bytes, std::size_t count);

    /// Tells that the file has ended. A last line without line feed counts as a line.
    void finish();

    /// What was found so far; complete after feed() returned true or finish() was called.
    const RawHeader& header() const { return m_header; }

private:
    void append(const char* bytes, std::size_t count);
    void addToLine(const char* bytes, std::size_t count);
    void endLine(bool withLineFeed);
    void conclude();
    bool canBeContinuation() const;

    RawHeader m_header;
    QByteArray m_line;              // the current line without leading blanks, runs of blanks cut to one
    std::int64_t m_lineLength = 0;  // its length as delivered, line feed left out
    std::int64_t m_delivered = 0;   // bytes of all lines before it
    bool m_carriageReturn = false;  // the last byte was one and may belong to the line's end
    bool m_skipping = false;        // nothing more of the line matters but its length
    bool m_afterMarker = false;     // the line before it was the end marker
    bool m_done = false;
};

}  // namespace viz
