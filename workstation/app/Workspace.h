#pragma once

#include <QHash>
#include <QMdiArea>
#include <QString>

#include <functional>

class CHVSChildWindow;
class CHVSMdiSubWindow;
class CHVSSequenceDataset;
class CHVSSequenceWindow;

/// The area in which sequence windows and the tools' own windows live, and the order of events round a
/// sequence's life.
///
/// A new sequence: window made, sequenceAdded, window shown, sequenceChanged. A sequence that goes: its
/// unsaved results settled, sequenceAboutToBeRemoved while it and its window exist, both deleted, then
/// sequenceChanged of the one that is active now, or of null.
class Workspace : public QMdiArea
{
    Q_OBJECT

public:
    explicit Workspace(QWidget* parent = nullptr);
    ~Workspace() override;

    /// Makes a sequence that holds only a 3D scene and brings its window to the front. The id is `wish`, with
    /// a number behind it where that is taken. Null when `wish` can't name a folder.
    CHVSSequenceDataset* createScene(const QString& wish);

    /// Shows the window of a sequence and makes it the active one.
    void bringToFront(CHVSSequenceDataset* sequence);

    /// The sequence of the active window; null when there is none.
    CHVSSequenceDataset* activeSequence() const;

    /// Puts a tool's window into a sub-window, hidden. Closing it hides it; it stays its owner's. A widget
    /// that is in the workspace already stays as it is.
    CHVSMdiSubWindow* addTool(QWidget* tool);

    /// Settles what is unsaved in sequences that are to be closed; false when they have to stay open.
    using Settler = std::function<bool(const QList<CHVSSequenceDataset*>& sequences)>;
    void setSettler(Settler settler) { m_settler = std::move(settler); }

    /// False when the sequence is not open (or closing already), nothing may be closed now, or it has to stay
    /// open.
    bool closeSequence(CHVSSequenceDataset* sequence);

    /// Closes every sequence, the last one first. False when nothing may be closed now, or one of them has to
    /// stay open; then all of them stay.
    bool closeAll();

    /// The same for the end of the program, when nobody is asked any more.
    void closeWhatIsLeft();

    /// Sub-windows in the order of their opening, the hidden ones left out.
    QList<QMdiSubWindow*> shownWindows() const;

signals:
    void sequenceAdded(CHVSSequenceDataset* sequence);
    void sequenceAboutToBeRemoved(CHVSSequenceDataset* sequence);
    /// Another sequence, or none, is active.
    void sequenceChanged(CHVSSequenceDataset* sequence);
    /// The active sequence window shows another tab.
    void tabChanged(const QString& tabName);
    /// The content of the active sequence's 3D view changed.
    void view3DChanged(bool bClearAnalysisResults);
    /// The transform tool of the active sequence works on another object.
    void transformObjectChanged(const QString& object);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool settle(const QList<CHVSSequenceDataset*>& sequences);
    bool close(CHVSSequenceDataset* sequence);
    void wrap(CHVSSequenceWindow* window);
    void welcome(CHVSSequenceDataset* sequence);
    void onActiveChanged(CHVSChildWindow* window);
    void activateNext();

    QHash<CHVSSequenceDataset*, CHVSMdiSubWindow*> m_frames;
    Settler m_settler;
    bool m_isSettling = false;
    int m_closing = 0;  ///< while above 0, changes of the active window are told at the end
};
