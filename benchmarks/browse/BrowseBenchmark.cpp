// A browse of 2,000 folders with 10 DICOM files each, all of it in the page cache.
//
//   Time          CPU time of the browse's thread
//   times_bare    the same over the bare walk's time in the same iteration: each folder listed once, and the
//                 first 4 KB of its first file read; at most 3
//   gdcm_ms       GDCM's scanner over the first files only, whose paths it is given: no listing
//   found         data sets, 2,000

#include "PublicScanner.h"

#include "browse/CVolBrowseEvents.h"
#include "browse/CVolBrowseManager.h"
#include "support/dicom/DicomBuilder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int folders = 2000;
constexpr int filesInFolder = 10;

double threadSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// A CT slice with the attributes that scanners write.
DicomBuilder slice()
{
    DicomBuilder builder;
    builder.size(64, 64).bits(16, 12).spacing(0.35, 0.35).position(-90, -90, 12);
    const struct
    {
        unsigned short group;
        unsigned short element;
        const char* value;
    } attributes[] = {{0x0008, 0x0008, "ORIGINAL\\PRIMARY\\AXIAL"},
                      {0x0008, 0x0020, "20240102"},
                      {0x0008, 0x0021, "20240102"},
                      {0x0008, 0x0022, "20240102"},
                      {0x0008, 0x0030, "101112"},
                      {0x0008, 0x0031, "101112"},
                      {0x0008, 0x0050, "12345"},
                      {0x0008, 0x0070, "Maker"},
                      {0x0008, 0x0080, "Institute of Small Animals"},
                      {0x0008, 0x1010, "STATION"},
                      {0x0008, 0x1030, "whole body"},
                      {0x0008, 0x103E, "bone 0.35"},
                      {0x0008, 0x1090, "Scanner 3"},
                      {0x0010, 0x0010, "Mouse^17"},
                      {0x0010, 0x0020, "17"},
                      {0x0010, 0x0030, "20231101"},
                      {0x0010, 0x0040, "F"},
                      {0x0010, 0x1030, "0.025"},
                      {0x0018, 0x0015, "WHOLEBODY"},
                      {0x0018, 0x0050, "0.35"},
                      {0x0018, 0x0060, "50"},
                      {0x0018, 0x0088, "0.35"},
                      {0x0018, 0x1030, "fast"},
                      {0x0018, 0x1100, "180"},
                      {0x0018, 0x1110, "400"},
                      {0x0018, 0x1111, "250"},
                      {0x0018, 0x1150, "300"},
                      {0x0018, 0x1151, "200"},
                      {0x0018, 0x1210, "B30"},
                      {0x0018, 0x5100, "HFP"},
                      {0x0020, 0x0011, "3"},
                      {0x0020, 0x0012, "1"},
                      {0x0020, 0x0013, "7"},
                      {0x0020, 0x1041, "12"},
                      {0x0028, 0x1050, "300"},
                      {0x0028, 0x1051, "1500"},
                      {0x0028, 0x1052, "-1024"},
                      {0x0028, 0x1053, "1"}};
    for (const auto& attribute : attributes)
        builder.set(attribute.group, attribute.element, attribute.value);
    return builder;
}

// 20 subjects of 100 series each.
class Disk
{
public:
    Disk()
    {
        const QByteArray bytes = slice().bytes();
        for (int i = 0; i < folders; ++i) {
            const QString folder = QStringLiteral("%1/subject_%2/series_%3")
                                       .arg(m_root.path())
                                       .arg(i / 100, 2, 10, QLatin1Char('0'))
                                       .arg(i % 100, 3, 10, QLatin1Char('0'));
            QDir().mkpath(folder);
            for (int file = 0; file < filesInFolder; ++file) {
                QFile out(folder + QStringLiteral("/slice_%1.dcm").arg(file, 4, 10, QLatin1Char('0')));
                isGood = isGood && out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size();
            }
        }
        root = m_root.path().toLocal8Bit().toStdString();
    }

    std::string root;
    bool isGood = true;

private:
    QTemporaryDir m_root;
};

const Disk& disk()
{
    static const Disk one;
    return one;
}

// The least that any browse has to do. Returns the folders' first files.
void bareWalk(const std::string& folder, std::vector<std::string>& firstFiles)
{
    DIR* const open = opendir(folder.c_str());
    if (!open) return;
    std::vector<std::string> below;
    std::string first;
    while (const dirent* const entry = readdir(open)) {
        if (entry->d_name[0] == '.') continue;
        if (entry->d_type == DT_DIR)
            below.push_back(folder + '/' + entry->d_name);
        else if (first.empty())
            first = folder + '/' + entry->d_name;
    }
    closedir(open);
    if (!first.empty()) {
        std::array<char, 4096> bytes{};
        const int file = ::open(first.c_str(), O_RDONLY | O_CLOEXEC);
        benchmark::DoNotOptimize(read(file, bytes.data(), bytes.size()));
        close(file);
        firstFiles.push_back(first);
    }
    std::sort(below.begin(), below.end());
    for (const std::string& path : below)
        bareWalk(path, firstFiles);
}

class TimedManager : public CVolBrowseManager
{
public:
    using CVolBrowseManager::CVolBrowseManager;
    double seconds = 0;

protected:
    void run() override
    {
        const double begin = threadSeconds();
        CVolBrowseManager::run();
        seconds = threadSeconds() - begin;
    }
};

class Counter : public QObject
{
public:
    int found = 0;

protected:
    void customEvent(QEvent* event) override
    {
        if (event->type() == CVolBrowseOneFileCompltdEvent::eventType) ++found;
    }
};

// Time of the thread, in seconds; `found` counts the data sets.
double browse(int& found)
{
    Counter counter;
    TimedManager manager(&counter);
    manager.setBrowsePath(QString::fromStdString(disk().root), true);
    manager.start(QThread::InheritPriority);
    manager.wait();
    QCoreApplication::processEvents();
    found = counter.found;
    return manager.seconds;
}

void browseDicomFolders(benchmark::State& state)
{
    if (!disk().isGood) {
        state.SkipWithError("the files could not be written");
        return;
    }
    // The libraries start once, and files are older than this as a rule.
    QThread::sleep(3);
    int found = 0;
    browse(found);
    std::vector<std::string> firstFiles;
    bareWalk(disk().root, firstFiles);
    double bare = 0;
    double browsed = 0;
    double gdcm = 0;
    for (auto _ : state) {
        std::vector<std::string> again;
        double begin = threadSeconds();
        bareWalk(disk().root, again);
        bare += threadSeconds() - begin;

        const double seconds = browse(found);
        browsed += seconds;
        state.SetIterationTime(seconds);

        begin = threadSeconds();
        if (scanByGdcm(firstFiles) != firstFiles.size()) state.SkipWithError("GDCM read less files");
        gdcm += threadSeconds() - begin;
    }
    const auto runs = static_cast<double>(state.iterations());
    state.counters["bare_ms"] = bare / runs * 1e3;
    state.counters["times_bare"] = browsed / bare;
    state.counters["gdcm_ms"] = gdcm / runs * 1e3;
    state.counters["found"] = found;
}
BENCHMARK(browseDicomFolders)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

}  // namespace
