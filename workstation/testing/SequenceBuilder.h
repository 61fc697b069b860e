#pragma once

#include "lib/hvapi/sequence/SequenceDescription.h"

#include <QMetaObject>
#include <QString>
#include <QStringList>

class CHVSMdiSubWindow;
class CHVSSequenceDataset;
class CHVSSequenceWindow;

/// A sequence of a test, with its window in a sub-window of no workspace. Closed when this goes, unless it
/// was before.
class TestSequence
{
public:
    explicit TestSequence(const SequenceDescription& description);
    ~TestSequence();
    TestSequence(TestSequence&& other) noexcept;
    TestSequence& operator=(TestSequence&&) = delete;
    TestSequence(const TestSequence&) = delete;
    TestSequence& operator=(const TestSequence&) = delete;

    /// Null when it could not be opened or is closed.
    CHVSSequenceDataset* dataset() const;
    CHVSSequenceWindow* window() const;
    CHVSMdiSubWindow* frame() const { return m_frame; }
    CHVSSequenceDataset* operator->() const { return dataset(); }

    /// Shows the sub-window, waits until it is on screen, and makes the window the active one.
    void show();
    void close();

private:
    QString m_id;
    CHVSMdiSubWindow* m_frame = nullptr;
};

/// Says what a test's sequence is like. Without a word it is a 3D-scene-only sequence without a folder.
///
///     TestSequence scene = SequenceBuilder().open();
///     TestSequence optical = SequenceBuilder("clicks").sla().clicks({"1", "2"}).open();
class SequenceBuilder
{
public:
    /// Without an id the next free one of "sequence", "sequence_2", ... is taken.
    explicit SequenceBuilder(const QString& id = {});

    SequenceBuilder& sla();
    SequenceBuilder& ct();
    SequenceBuilder& scene3D();
    /// Neither of the three.
    SequenceBuilder& other();
    SequenceBuilder& loadedAsGroup();
    SequenceBuilder& folder(const QString& infoPath);
    SequenceBuilder& clicks(const QStringList& clickNumbers);

    TestSequence open() const;

private:
    SequenceDescription m_description;
};
