#include "phantom/DicomFile.h"

#include "phantom/Bytes.h"
#include "phantom/PartFile.h"
#include "phantom/Text.h"
#include "phantom/Uid.h"

#include <cstdio>

namespace phantom {
namespace {

/// Attributes in the coding "explicit VR, little endian", in the order in which they are added.
class Attributes
{
public:
    /// A text of any VR of characters; several values parted by a backslash.
    void text(unsigned group, unsigned element, const char* vr, std::string value)
    {
        if (value.size() % 2 != 0) value += vr[0] == 'U' && vr[1] == 'I' ? '\0' : ' ';
        begin(group, element, vr);
        putU16(m_bytes, static_cast<unsigned>(value.size()));
        m_bytes += value;
    }
    void uid(unsigned group, unsigned element, const std::string& value)
    {
        text(group, element, "UI", value);
    }
    void word(unsigned group, unsigned element, int value)
    {
        begin(group, element, "US");
        putU16(m_bytes, 2);
        putU16(m_bytes, static_cast<unsigned>(value));
    }
    void longWord(unsigned group, unsigned element, std::uint32_t value)
    {
        begin(group, element, "UL");
        putU16(m_bytes, 4);
        putU32(m_bytes, value);
    }
    /// A value that is another attribute's number.
    void tag(unsigned group, unsigned element, unsigned valueGroup, unsigned valueElement)
    {
        begin(group, element, "AT");
        putU16(m_bytes, 4);
        putU16(m_bytes, valueGroup);
        putU16(m_bytes, valueElement);
    }
    /// Only the head of an attribute of bytes, which the caller has follow: "OB" or "OW".
    void longHead(unsigned group, unsigned element, const char* vr, std::uint32_t length)
    {
        begin(group, element, vr);
        putU16(m_bytes, 0);
        putU32(m_bytes, length);
    }
    void raw(const std::string& bytes) { m_bytes += bytes; }

    const std::string& bytes() const { return m_bytes; }

private:
    void begin(unsigned group, unsigned element, const char* vr)
    {
        putU16(m_bytes, group);
        putU16(m_bytes, element);
        m_bytes.append(vr, 2);
    }

    std::string m_bytes;
};

const char* nameOf(Orientation orientation)
{
    switch (orientation) {
    case Orientation::Coronal:
        return "CORONAL";
    case Orientation::Sagittal:
        return "SAGITTAL";
    case Orientation::Axial:
        break;
    }
    return "AXIAL";
}

std::string number(double value)
{
    return brief(value);
}

template <class... More>
std::string number(double value, More... more)
{
    return brief(value) + "\\" + number(more...);
}

/// What the identifiers of one run have in common. Whatever changes the files' contents stands in it.
std::string nameOfRun(const Slices& slices, const DicomOptions& options, bool oneFile)
{
    std::string name = "phantom scan";
    name.append(" size ").append(std::to_string(slices.size()));
    name.append(" bits ").append(std::to_string(slices.bits()));
    name.append(" seed ").append(std::to_string(options.seed));
    name.append(" spacing ").append(plain(options.spacing));
    name.append(options.feetFirst ? " FFS " : " HFS ").append(nameOf(options.orientation));
    name.append(options.native ? " native" : "").append(oneFile ? " frames" : " series");
    return name;
}

std::string pictureClass(const Slices& slices, bool oneFile)
{
    if (!oneFile) return "1.2.840.10008.5.1.4.1.1.2";  // CT image
    // Grey frames, of bytes or of words; they may be of any modality.
    return slices.bits() == 8 ? "1.2.840.10008.5.1.4.1.1.7.2" : "1.2.840.10008.5.1.4.1.1.7.3";
}

std::string fileHeader(const std::string& classUid, const std::string& instanceUid, bool native)
{
    Attributes meta;
    meta.longHead(0x0002, 0x0001, "OB", 2);
    meta.raw(std::string("\0\1", 2));
    meta.uid(0x0002, 0x0002, classUid);
    meta.uid(0x0002, 0x0003, instanceUid);
    meta.uid(0x0002, 0x0010, "1.2.840.10008.1.2.1");
    meta.uid(0x0002, 0x0012, uidOf("phantom implementation"));
    meta.text(0x0002, 0x0013, "SH", native ? "Halvane_PHANTOM" : "PHANTOM_1");

    Attributes header;
    header.raw(std::string(128, '\0') + "DICM");
    header.longWord(0x0002, 0x0000, static_cast<std::uint32_t>(meta.bytes().size()));
    header.raw(meta.bytes());
    return header.bytes();
}

/// Everything up to the first pixel; `i` is the slice, the first for a file of all of them.
std::string upToThePixels(const Slices& slices, int i, const DicomOptions& options, bool oneFile)
{
    const std::string run = nameOfRun(slices, options, oneFile);
    const std::string classUid = pictureClass(slices, oneFile);
    const std::string instanceUid = uidOf(run + " instance " + std::to_string(i));
    const std::string step = number(options.spacing);
    const Triple row = slices.alongRow(), column = slices.alongColumn(), across = slices.acrossSlices();
    const auto place = [&](int slice) {
        Triple mm = slices.firstPixel(slice);
        for (double& value : mm)
            value *= options.spacing;
        return mm;
    };
    const auto location = [&](int slice) {
        const Triple at = place(slice);
        return number(at[0] * across[0] + at[1] * across[1] + at[2] * across[2]);
    };
    const Triple first = place(i);

    Attributes a;
    a.raw(fileHeader(classUid, instanceUid, options.native));
    a.text(0x0008, 0x0008, "CS", std::string("ORIGINAL\\PRIMARY\\") + nameOf(options.orientation));
    a.uid(0x0008, 0x0016, classUid);
    a.uid(0x0008, 0x0018, instanceUid);
    a.text(0x0008, 0x0020, "DA", "");
    a.text(0x0008, 0x0030, "TM", "");
    a.text(0x0008, 0x0050, "SH", "");
    a.text(0x0008, 0x0060, "CS", "CT");
    if (oneFile) a.text(0x0008, 0x0064, "CS", "SYN");
    a.text(0x0008, 0x0070, "LO", "Phantom");
    a.text(0x0008, 0x0090, "PN", "");
    a.text(0x0008, 0x103e, "LO", std::string("Made-up mouse, ") + nameOf(options.orientation));
    a.text(0x0010, 0x0010, "PN", "PHANTOM^MOUSE");
    a.text(0x0010, 0x0020, "LO", "PHANTOM-" + std::to_string(options.seed));
    a.text(0x0010, 0x0030, "DA", "");
    a.text(0x0010, 0x0040, "CS", "O");
    a.text(0x0018, 0x0050, "DS", step);
    a.text(0x0018, 0x0060, "DS", "");
    a.text(0x0018, 0x0088, "DS", step);
    if (oneFile) {
        std::string places = location(0);
        for (int slice = 1; slice < slices.size(); ++slice)
            places.append("\\").append(location(slice));
        a.text(0x0018, 0x2005, "DS", places);
    }
    a.text(0x0018, 0x5100, "CS", options.feetFirst ? "FFS" : "HFS");
    a.uid(0x0020, 0x000d, uidOf(run + " study"));
    a.uid(0x0020, 0x000e, uidOf(run + " series"));
    a.text(0x0020, 0x0010, "SH", "1");
    a.text(0x0020, 0x0011, "IS", "1");
    a.text(0x0020, 0x0012, "IS", "1");
    a.text(0x0020, 0x0013, "IS", std::to_string(i + 1));
    a.text(0x0020, 0x0032, "DS", number(first[0], first[1], first[2]));
    a.text(0x0020, 0x0037, "DS", number(row[0], row[1], row[2], column[0], column[1], column[2]));
    a.uid(0x0020, 0x0052, uidOf(run + " frame of reference"));
    a.text(0x0020, 0x1040, "LO", "");
    a.text(0x0020, 0x1041, "DS", location(i));
    a.word(0x0028, 0x0002, 1);
    a.text(0x0028, 0x0004, "CS", "MONOCHROME2");
    if (oneFile) {
        a.text(0x0028, 0x0008, "IS", std::to_string(slices.size()));
        a.tag(0x0028, 0x0009, 0x0018, 0x2005);
    }
    a.word(0x0028, 0x0010, slices.size());
    a.word(0x0028, 0x0011, slices.size());
    a.text(0x0028, 0x0030, "DS", step + "\\" + step);
    a.word(0x0028, 0x0100, slices.bits());
    a.word(0x0028, 0x0101, slices.bits());
    a.word(0x0028, 0x0102, slices.bits() - 1);
    a.word(0x0028, 0x0103, 0);
    // Lowest and highest value are left out: readers that find them may trust them and skip looking, and then
    // know nothing of how the values are spread.
    a.text(0x0028, 0x1052, "DS", "0");
    a.text(0x0028, 0x1053, "DS", "1");
    a.text(0x0028, 0x1054, "LO", "US");
    const std::uint64_t pixels = std::uint64_t{1} * slices.size() * slices.size();
    const std::uint64_t length = pixels * (slices.bits() / 8) * (oneFile ? slices.size() : 1);
    a.longHead(0x7fe0, 0x0010, slices.bits() == 8 ? "OB" : "OW",
               static_cast<std::uint32_t>(length + length % 2));
    return a.bytes();
}

}  // namespace

std::string dicomSlice(const Slices& slices, int i, const DicomOptions& options)
{
    std::string bytes = upToThePixels(slices, i, options, false);
    const std::vector<unsigned char> pixels = slices.slice(i);
    bytes.append(pixels.begin(), pixels.end());
    if (pixels.size() % 2 != 0) bytes += '\0';
    return bytes;
}

std::string dicomFramesHeader(const Slices& slices, const DicomOptions& options)
{
    return upToThePixels(slices, 0, options, true);
}

std::string writeDicomSeries(const std::string& folder, const Slices& slices, const DicomOptions& options)
{
    PartFolder part(folder);
    for (int i = 0; i < slices.size() && part.error().empty(); ++i) {
        char name[32];
        std::snprintf(name, sizeof name, "slice-%04d.dcm", i + 1);
        PartFile file(part.path(name));
        file.write(dicomSlice(slices, i, options));
        file.finish();
        if (!file.error().empty()) return file.error();
    }
    part.finish();
    return part.error();
}

std::string writeDicomFrames(const std::string& path, const Slices& slices, const DicomOptions& options)
{
    PartFile file(path);
    file.write(dicomFramesHeader(slices, options));
    for (int i = 0; i < slices.size() && file.error().empty(); ++i) {
        const std::vector<unsigned char> pixels = slices.slice(i);
        file.write(pixels.data(), pixels.size());
    }
    if (slices.size() % 2 != 0 && slices.bits() == 8) file.write(std::string(1, '\0'));
    file.finish();
    return file.error();
}

}  // namespace phantom
