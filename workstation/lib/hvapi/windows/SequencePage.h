#pragma once

#include <QWidget>

class CHVSSequenceDataset;
class ClickPane;
class QLabel;
class QListWidget;

/// The tab "Sequence View" of a sequence: says what the sequence is, where it lies and which volume it holds,
/// and shows the pictures of its clicks.
class SequencePage : public QWidget
{
    Q_OBJECT

public:
    explicit SequencePage(CHVSSequenceDataset* sequence, QWidget* parent = nullptr);

    /// Takes everything from the sequence anew.
    void display(CHVSSequenceDataset* sequence);

signals:
    void openSceneClicked();

private:
    QLabel* m_name;
    QLabel* m_kind;
    QLabel* m_folder;
    QLabel* m_clicks;
    QLabel* m_volumeTitle;
    QListWidget* m_files;
    QWidget* m_card;
    ClickPane* m_pane;
};
