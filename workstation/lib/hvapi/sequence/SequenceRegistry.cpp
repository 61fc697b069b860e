#include "lib/hvapi/sequence/SequenceRegistry.h"

#include "hvapi/windows/CHVSSequenceWindow.h"
#include "lib/hvapi/scene/C3DSGManagerPrivate.h"
#include "lib/hvapi/sequence/CtCalibration.h"
#include "lib/hvapi/sequence/DatasetIndex.h"
#include "lib/hvapi/sequence/OpticalVoxelFile.h"
#include "lib/hvapi/sequence/SequenceData.h"
#include "lib/hvapi/windows/SequenceWindowData.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr int longestId = 200;  // bytes, so that a folder of that name and a file in it fit everywhere

QString asFolder(QString path)
{
    path.replace('\\', '/');
    if (!path.isEmpty() && !path.endsWith('/')) path += '/';
    return path;
}

std::unique_ptr<CHVSDataset> makeDataset(QString const& clickNumber, CHVSSequenceDataset* sequence)
{
    auto data = std::make_unique<CHVSDataset::Private>();
    data->clickNumber = clickNumber;
    data->sequence = sequence;
    return std::make_unique<CHVSDataset>(std::move(data));
}

}  // namespace

SequenceRegistry::SequenceRegistry()
{
    // Known by name, so that string connections may be queued and spies may look into them.
    qRegisterMetaType<CHVSSequenceDataset*>();
    qRegisterMetaType<CHVSDataset*>();
    // Scene graphs must go before the driver does, whatever the application leaves open.
    qAddPostRoutine([] { instance().clear(); });
}

SequenceRegistry& SequenceRegistry::instance()
{
    static SequenceRegistry registry;
    return registry;
}

bool SequenceRegistry::isValidId(QString const& id)
{
    if (id.isEmpty() || id == "." || id == ".." || id.trimmed() != id) return false;
    if (id.toUtf8().size() > longestId) return false;
    return std::none_of(id.begin(), id.end(), [](QChar c) {
        return c == '/' || c == '\\' || c == ':' || c.category() == QChar::Other_Control;
    });
}

QString SequenceRegistry::freeId(QString const& wish) const
{
    QString id = wish;
    for (int n = 2; find(id); ++n)
        id = QString("%1_%2").arg(wish).arg(n);
    return isValidId(id) ? id : QString();
}

CHVSSequenceDataset* SequenceRegistry::create(SequenceDescription const& description)
{
    if (!isValidId(description.id) || find(description.id)) return nullptr;
    auto data = std::make_unique<CHVSSequenceDataset::Private>();
    data->description = description;
    data->description.infoPath = asFolder(description.infoPath);
    data->description.clickNumbers.clear();
    auto* sequence = new CHVSSequenceDataset(std::move(data));
    auto& stored = CHVSSequenceDataset::Private::of(*sequence);
    // A volume may be loaded before the 3D tab was ever opened.
    stored.graph.hostSide().makeRoot();
    stored.graph.hostSide().calibration = [sequence] { return ctCalibration(sequence->getSequenceInfo()); };
    for (auto const& click : description.clickNumbers) {
        if (click.isEmpty() || datasetIndex().contains(click)) continue;
        stored.description.clickNumbers.append(click);
        stored.datasets.push_back(makeDataset(click, sequence));
    }
    m_sequences.append(sequence);
    return sequence;
}

CHVSSequenceDataset* SequenceRegistry::open(SequenceDescription const& description)
{
    return open(description, SequenceContents());
}

CHVSSequenceDataset* SequenceRegistry::open(SequenceDescription const& description, SequenceContents contents)
{
    auto* sequence = create(description);
    if (!sequence) return nullptr;
    auto& data = CHVSSequenceDataset::Private::of(*sequence);
    data.info = std::move(contents.info);
    for (auto& click : contents.clicks) {
        for (auto const& dataset : data.datasets) {
            auto& member = CHVSDataset::Private::of(*dataset);
            if (member.clickNumber != click.number) continue;
            member.take(std::move(click));
            break;
        }
    }
    addOpticalVolume(data.graph, std::move(contents.optical));
    emit windowCreated(new CHVSSequenceWindow(sequence));
    emit sequenceAdded(sequence);
    return sequence;
}

CHVSSequenceDataset* SequenceRegistry::add(SequenceDescription const& description)
{
    auto* sequence = create(description);
    if (sequence) emit sequenceAdded(sequence);
    return sequence;
}

bool SequenceRegistry::close(CHVSSequenceDataset* sequence)
{
    if (!contains(sequence)) return false;
    auto& data = CHVSSequenceDataset::Private::of(*sequence);
    // Saving results may run the event loop, and the user may ask for the same once more.
    if (data.closing) return false;
    data.closing = true;
    if (auto* window = CHVSSequenceWindow::getSequenceWindow(sequence)) setClosing(*window);

    emit sequence->saveExistingAnalysisResult();
    emit sequenceAboutToBeRemoved(sequence);

    QString const id = data.description.id;
    m_sequences.removeOne(sequence);
    delete CHVSSequenceWindow::getSequenceWindow(sequence);
    delete sequence;
    emit sequenceRemoved(id);
    return true;
}

void SequenceRegistry::clear()
{
    while (!m_sequences.isEmpty()) {
        auto* sequence = m_sequences.takeLast();
        delete CHVSSequenceWindow::getSequenceWindow(sequence);
        delete sequence;
    }
    auto const left = datasetIndex().values();
    qDeleteAll(left);
}

QList<CHVSSequenceDataset*> SequenceRegistry::sequences() const
{
    return m_sequences;
}

bool SequenceRegistry::contains(CHVSSequenceDataset const* sequence) const
{
    return std::find(m_sequences.begin(), m_sequences.end(), sequence) != m_sequences.end();
}

CHVSSequenceDataset* SequenceRegistry::find(QString const& id) const
{
    for (auto* sequence : m_sequences) {
        if (CHVSSequenceDataset::Private::of(*sequence).description.id.compare(id, Qt::CaseInsensitive) == 0)
            return sequence;
    }
    return nullptr;
}

SequenceDescription SequenceRegistry::description(CHVSSequenceDataset const* sequence) const
{
    return contains(sequence) ? CHVSSequenceDataset::Private::of(*sequence).description
                              : SequenceDescription();
}

void SequenceRegistry::change(CHVSSequenceDataset* sequence, SequenceDescription const& description)
{
    if (!contains(sequence)) return;
    auto& stored = CHVSSequenceDataset::Private::of(*sequence).description;
    stored.kind = description.kind;
    stored.loadedAsGroup = description.loadedAsGroup;
    stored.infoPath = asFolder(description.infoPath);
    emit sequence->sequencePropertyChanged(sequence);
}

void SequenceRegistry::setAcquisitionInProgress(CHVSSequenceDataset* sequence, bool inProgress)
{
    if (contains(sequence)) CHVSSequenceDataset::Private::of(*sequence).acquisitionInProgress = inProgress;
}

QStringList SequenceRegistry::loadedVolumetricData(CHVSSequenceDataset const* sequence) const
{
    return contains(sequence) ? CHVSSequenceDataset::Private::of(*sequence).loadedVolumetricData
                              : QStringList();
}

CHVSDataset* SequenceRegistry::addDataset(QString const& clickNumber)
{
    if (clickNumber.isEmpty() || datasetIndex().contains(clickNumber)) return nullptr;
    return makeDataset(clickNumber, nullptr).release();
}

void SequenceRegistry::removeDataset(CHVSDataset* dataset)
{
    if (!dataset || dataset->isPartOfSequence()) return;
    emit datasetAboutToBeRemoved(dataset);
    delete dataset;
}
