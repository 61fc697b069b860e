#include "Browse.h"

#include "browse/logic/DataSetIcon.h"
#include "support/SharedData.h"

#include <optional>

// What the rules give for the collection of real scans, worked out from its description and its headers as
// another program shows them. Folders are listed whose names stand in neither table below because no file
// of theirs passes the name filters.

namespace viz_test {

namespace {

constexpr char dicomIcon[] = ":/Resource/dicomIcon.xpm";
constexpr char dicomStack[] = ":/Resource/dicomStackIcon.xpm";
constexpr char tiffIcon[] = ":/Resource/tiffIcon.xpm";
constexpr char tiffStack[] = ":/Resource/tiffStackIcon.xpm";

struct Expected
{
    const char* folder;
    const char* file;  ///< this one stands first in the folder; null: they all tell the same
    const char* slices;
    const char* dimension;
    const char* modality;
    const char* pixelSpacing;
    const char* sliceSpacing;
    const char* dataType;
    const char* icon;
};

const Expected accepted[] = {
    // --- more files than one count as slices; slice spacing falls back from distance to thickness to pixels
    // ---
    {"dicom_series/ct_feetfirst_ge_3slice", nullptr, "3", "512 x 512", "CT", "0.810547\\0.810547", "1.250000",
     "16-bit", dicomStack},
    {"dicom_series/mr_coronal_philips", nullptr, "5", "256 x 256", "MR", "1.75781\\1.75781", "25", "12-bit",
     dicomStack},
    {"dicom_series/mr_noise_encodings/none", nullptr, "3", "256 x 256", "MR", "1\\1", "1\\1", "12-bit",
     dicomStack},
    {"dicom_series/mr_noise_encodings/rle", nullptr, "3", "256 x 256", "MR", "1\\1", "1\\1", "12-bit",
     dicomStack},
    {"dicom_series/mr_noise_encodings/jpeg_lossless", nullptr, "3", "256 x 256", "MR", "1\\1", "1\\1",
     "12-bit", dicomStack},
    {"dicom_series/mr_noise_encodings/jpeg2000", nullptr, "3", "256 x 256", "MR", "1\\1", "1\\1", "12-bit",
     dicomStack},
    {"dicom_series/mr_oblique_hitachi", nullptr, "4", "64 x 64", "MR", "2.34375\\2.34375", "4", "12-bit",
     dicomStack},
    {"dicom_series/mr_sagittal_prone_siemens", nullptr, "5", "256 x 256", "MR", "1.015625\\1.015625", "4.8",
     "12-bit", dicomStack},
    {"dicom_single/mr_small_encodings", nullptr, "8", "64 x 64", "MR", "0.3125\\0.3125", "0.8000", "16-bit",
     dicomStack},
    {"dicom_multiframe/mr_enhanced_small", nullptr, "2", "64 x 64", "MR", "", "1.2", "12-bit", dicomStack},
    {"dicom_multiframe/ct_enhanced_2frames", "CT0012_crop256.dcm", "3", "256 x 256", "CT", "", "", "16-bit",
     dicomStack},
    {"dicom_multiframe/ct_enhanced_2frames", "CT0012.not_fragmented_bot_rle.dcm", "3", "512 x 512", "CT", "",
     "", "16-bit", dicomStack},
    {"dicom_multiframe/ct_enhanced_2frames", "CT0012.fragmented_no_bot_jpeg_lossless.70.dcm", "3",
     "512 x 512", "CT", "", "", "16-bit", dicomStack},

    // --- one file counts its frames ---
    {"dicom_multiframe/ct_legacy_converted", nullptr, "3", "23 x 38", "CT", "", "", "16-bit", dicomIcon},
    {"dicom_multiframe/mr_cardiac_8bit_philips", nullptr, "16", "256 x 256", "MR", "", "10.00", "8-bit",
     dicomIcon},
    {"dicom_multiframe/mr_enhanced_hyperfine", nullptr, "8", "112 x 138", "MR", "1.61\\1.59", "1.61\\1.59",
     "16-bit", dicomIcon},
    {"dicom_multiframe/mr_knee_feetfirst_sagittal", nullptr, "19", "256 x 256", "MR", "", "", "12-bit",
     dicomIcon},
    {"dicom_multiframe/rtdose_32bit", nullptr, "15", "10 x 10", "RTDOSE",
     "10.0000000000000\\10.0000000000000", "10.0000000000000\\10.0000000000000", "32-bit", dicomIcon},
    {"dicom_single/ct_feetfirst_single_ge", nullptr, "1", "128 x 128", "CT", "0.661468\\0.661468", "5.000000",
     "16-bit", dicomIcon},

    // --- grey, but not decodable without a number of rows: distances of slices in both columns, 0 as none
    // ---
    {"dicom_bad/missing_tags", "dwv-test_no-number-rows.dcm", "2", "32 x 0", "MR", "0", "0", "12-bit",
     dicomStack},
    // --- grey and decodable, odd as they are ---
    {"dicom_bad/odd_encoding", "badVR.dcm", "6", "10 x 10", "RTDOSE", "10.0000000000000\\10.0000000000000",
     "10.0000000000000\\10.0000000000000", "32-bit", dicomStack},
    {"dicom_bad/odd_encoding", "liver_1frame.dcm", "6", "512 x 512", "SEG", nullptr, nullptr, "1-bit",
     dicomStack},
    {"dicom_bad/odd_encoding", "image_dfl.dcm", "6", nullptr, nullptr, nullptr, nullptr, "8-bit", dicomStack},

    // --- TIFF: no modality, no spacings ---
    {"tiff_multipage/cells_16bit", nullptr, "24", "130 x 130", "", "", "", "16-bit", tiffIcon},
    {"tiff_multipage/confocal_grid_8bit_palette", nullptr, "11", "150 x 150", "", "", "", "8-bit", tiffIcon},
    {"tiff_multipage/mouse_8bit_grey", nullptr, "20", "125 x 125", "", "", "", "8-bit", tiffIcon},
    {"tiff_stack/mr_banana_16bit", nullptr, "7", "384 x 384", "", "", "", "16-bit", tiffStack},

    // --- samples in whole bytes; what is no grey picture of whole numbers has no size ---
    {"tiff_odd", "12bit.cropped.tif", "12", "100 x 100", "", "", "", "16-bit", tiffStack},
    {"tiff_odd", "16bit.MM.cropped.tif", "12", "64 x 64", "", "", "", "16-bit", tiffStack},
    {"tiff_odd", "16bit.deflate.tif", "12", "64 x 64", "", "", "", "16-bit", tiffStack},
    {"tiff_odd", "16bit.s.tif", "12", "10 x 10", "", "", "", "16-bit", tiffStack},
    {"tiff_odd", "uint16_1_4660.tif", "12", "10 x 10", "", "", "", "16-bit", tiffStack},
    {"tiff_odd", "hopper4.tif", "12", "128 x 128", "", "", "", "8-bit", tiffStack},
    {"tiff_odd", "g4-multi.tiff", "12", "3307 x 4677", "", "", "", "8-bit", tiffStack},
    {"tiff_odd", "multipage.tiff", "12", "10 x 10", "", "", "", "8-bit", tiffStack},
    {"tiff_odd", "multipage-mmap.tiff", "12", "10 x 10", "", "", "", "8-bit", tiffStack},
    {"tiff_odd", "10ct_32bit_128.tiff", "12", "0 x 0", "", "", "", "0-bit", tiffStack},
    {"tiff_odd", "hopper_bigtiff.tif", "12", "0 x 0", "", "", "", "0-bit", tiffStack},
    {"tiff_odd", "hopper_lzw.tif", "12", "0 x 0", "", "", "", "0-bit", tiffStack},

    // --- a whole directory makes a TIFF of each; what can be shown of it is the fuzzer's secret ---
    {"tiff_bad", "multipage_single_frame_loop.tiff", "8", "10 x 10", "", "", "", "8-bit", tiffStack},
    {"tiff_bad", "crash-0c7e0e8e11ce787078f00b5b0ca409a167f070e0.tif", "8", nullptr, "", "", "", nullptr,
     tiffStack},
    {"tiff_bad", "crash-0da013a13571cc8eb457a39fee8db18f8a3c7127.tif", "8", nullptr, "", "", "", nullptr,
     tiffStack},
    {"tiff_bad", "crash-1152ec2d1a1a71395b6f2ce6721c38924d025bf3.tif", "8", nullptr, "", "", "", nullptr,
     tiffStack},
    {"tiff_bad", "crash-2020-10-test.tif", "8", nullptr, "", "", "", nullptr, tiffStack},
    {"tiff_bad", "crash-63b1dffefc8c075ddc606c0a2f5fdc15ece78863.tif", "8", nullptr, "", "", "", nullptr,
     tiffStack},
};

struct Refused
{
    const char* folder;
    const char* file;
};

const Refused refused[] = {
    // --- colour ---
    {"dicom_bad/colour", nullptr},
    {"dicom_bad/missing_tags", "no-pixel-spacing.dcm"},
    // --- no pictures ---
    {"dicom_bad/not_an_image", nullptr},
    {"dicom_bad/odd_encoding", "ExplVR_LitEndNoMeta.dcm"},
    // --- cannot be read ---
    {"dicom_bad/odd_encoding", "no_meta.dcm"},
    {"dicom_bad/odd_encoding", "meta_missing_tsyntax.dcm"},
    {"dicom_bad/truncated", nullptr},
    // --- the header has no whole directory ---
    {"tiff_bad", "oom-225817ca0f8c663be7ab4b9e717b02c661e66834.tif"},
    {"tiff_bad", "seek_too_large.tif"},
};

// The head's bits in use differ by the file: 13 in those six, 12 in the others.
bool hasThirteenBits(const QString& name)
{
    for (const char* const file : {"25", "26", "27", "28", "30", "31"})
        if (name == QString("IMG_000%1.dcm").arg(file)) return true;
    return false;
}

void expectText(const QString& shown, const char* expected, const QString& what)
{
    if (!expected) return;
    EXPECT_EQ(shown.toStdString(), expected) << what.toStdString();
}

}  // namespace

class SharedScans : public BrowseTree
{
protected:
    void SetUp() override
    {
        root = sharedData(".");
        if (root.isEmpty()) GTEST_SKIP() << "there is no collection of real scans";
        root = QDir::cleanPath(root);
    }
    QStringList listed(const QString& relative) const
    {
        return QDir(root + '/' + relative).entryList({"*.dcm", "*.dc3", "*.tif", "*tiff"}, QDir::Files);
    }
    template <class Row>
    bool applies(const Row& row) const
    {
        const QStringList files = listed(row.folder);
        return !files.isEmpty() && (!row.file || files.first() == row.file);
    }

    QString root;
};

TEST_F(SharedScans, exactlyTheFoldersThatTheRulesAcceptAreListedWithTheirTexts)
{
    browse(manager, root);
    QStringList expectedFolders;
    for (const Expected& row : accepted) {
        if (!applies(row)) continue;
        expectedFolders << root + '/' + row.folder;
        const CVolBrowserInfo* const info = receiver.of(expectedFolders.last());
        ASSERT_TRUE(info) << row.folder;
        const QString what = QString("%1, first file %2").arg(row.folder, info->m_files.first());
        expectText(info->m_slices, row.slices, what);
        expectText(info->m_dimension, row.dimension, what);
        expectText(info->m_modality, row.modality, what);
        expectText(info->m_pixelSpacing, row.pixelSpacing, what);
        expectText(info->m_sliceSpacing, row.sliceSpacing, what);
        expectText(info->m_dataType, row.dataType, what);
        expectText(dataSetIcon(info->m_type, info->m_fileCount), row.icon, what);
        expectText(info->m_type, QString(row.folder).startsWith("tiff") ? "TIFF" : "DICOM", what);
        expectText(info->m_name, QString(row.folder).section('/', -1).toUtf8().constData(), what);
        EXPECT_EQ(info->m_parentFolder, QFileInfo(info->m_folder).path());
        EXPECT_EQ(info->m_files, listed(row.folder));
        EXPECT_EQ(info->m_fileCount, info->m_files.size());
        EXPECT_FALSE(info->m_isCtDataFolder);
    }

    const QString head = root + "/dicom_series/ct_head_neck_picker";
    expectedFolders << head;
    const CVolBrowserInfo* const info = receiver.of(head);
    ASSERT_TRUE(info);
    EXPECT_EQ(info->m_slices, "40");
    EXPECT_EQ(info->m_dimension, "192 x 256");
    EXPECT_EQ(info->m_modality, "CT");
    EXPECT_EQ(info->m_pixelSpacing, "1\\1");
    EXPECT_EQ(info->m_sliceSpacing, "3");
    EXPECT_EQ(info->m_dataType, hasThirteenBits(info->m_files.first()) ? "13-bit" : "12-bit");

    for (const Refused& row : refused)
        EXPECT_FALSE(applies(row) && receiver.of(root + '/' + row.folder)) << row.folder;

    expectedFolders.sort();
    QStringList found = receiver.foundFolders();
    found.sort();
    EXPECT_EQ(found.join('\n').toStdString(), expectedFolders.join('\n').toStdString());
}

// The name decides which file stands first: each of a mixed folder is tried in a folder of its
// own.
TEST_F(SharedScans, eachFileThatMayStandFirstIsDecidedAsTheRulesSay)
{
    int tried = 0;
    const auto alone = [&](const char* from, const char* name) {
        const QString to = path(QString("%1/%2").arg(++tried).arg(name));
        EXPECT_TRUE(QFile::copy(QString("%1/%2/%3").arg(root, from, name), to)) << name;
        receiver.found.clear();
        browse(manager, QFileInfo(to).path());
        return receiver.found.size() == 1 ? receiver.found.front().get() : nullptr;
    };
    for (const Expected& row : accepted) {
        if (!row.file) continue;
        const CVolBrowserInfo* const info = alone(row.folder, row.file);
        ASSERT_TRUE(info) << row.file;
        expectText(info->m_dimension, row.dimension, row.file);
        expectText(info->m_modality, row.modality, row.file);
        expectText(info->m_pixelSpacing, row.pixelSpacing, row.file);
        expectText(info->m_sliceSpacing, row.sliceSpacing, row.file);
        expectText(info->m_dataType, row.dataType, row.file);
    }
    for (const Refused& row : refused) {
        if (!row.file) continue;
        EXPECT_FALSE(alone(row.folder, row.file)) << row.file;
    }
    for (const char* const folder : {"dicom_bad/colour", "dicom_bad/not_an_image"})
        for (const QString& name : listed(folder))
            EXPECT_FALSE(alone(folder, name.toUtf8().constData())) << name.toStdString();
    EXPECT_GT(tried, 30);
}

}  // namespace viz_test
