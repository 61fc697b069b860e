#pragma once

#include "hvutils/hvutils_global.h"
#include "hvutils/tag_eLongProcessTypes.h"

#include <QString>
#include <QVector>
#include <memory>

class QCursor;
class QSettings;
class QWidget;

// An entry of the log, as given to CHVSLog::log.
struct HostLogEntry
{
    QString message;
    QString source;
    int line = 0;
    QString context;
    long severity = 1;     // 1 information, 2 warning, 3 error, 16 status line
    bool showBox = false;  // the application should show it in a box as well; the default does not
};

// A question for the user, asked in a modal box.
struct HostQuestion
{
    enum Kind
    {
        Information,
        Warning,
        Error
    };

    struct Button
    {
        int value = 0;  // what the question answers when this button is pressed
        QString text;   // empty: the usual text of the button value (1024 OK, 16384 Yes, ...)
    };

    Kind kind = Information;
    QWidget* parent = nullptr;
    QString title;
    QString text;
    QVector<Button> buttons;  // at least one
    int defaultValue = 0;     // button that Return presses; 0 in a question of standard buttons: none told
    int escapeValue = 0;      // answer of a box that is closed without a button
    bool canEscape = true;    // false: the box can be left by a button only
};

// What a long process tells.
struct HostProcessState
{
    int running = 0;     // union of the running kinds, tag_eLongProcessTypes
    QString message;     // what is being done; stays for a while after the end where that was asked for
    int step = 0;        // from 1; 0 when not told
    int totalSteps = 0;  // 0 when not known
    bool abortable = false;
    bool aborted = false;  // the user has asked for the end
    QString abortText;     // shown from then on
};

// Everything the static service classes of the libraries do outside themselves, in one replaceable object.
// The default does it for real: it shows boxes, writes the log file, keeps settings on disk. The application
// derives from it to show the log and the progress in its window; tests install one that records and answers
// by a script.
//
// install() and the GUI calls belong to the GUI thread; log() may come from any thread.
class HVUTILS_EXPORT HostServices
{
public:
    HostServices();
    virtual ~HostServices();  // uninstalls itself

    // The object in use. Never null: without an installed one it is the default.
    static HostServices& instance();

    // Puts `services` (not owned; null: the default) in use and gives back what was installed before, or
    // null.
    static HostServices* install(HostServices* services);

    // --- what an application or a test replaces ---

    // Any thread. Default: appends to logFilePath().
    virtual void log(HostLogEntry const& entry);

    // Asks and returns the value of the button pressed. Default: a modal QMessageBox.
    virtual int ask(HostQuestion const& question);

    // Puts a cursor on the application's stack, takes the topmost off. GUI thread only.
    virtual void setCursor(QCursor const& cursor);
    virtual void restoreCursor();

    // A process has begun, spoken, been aborted or ended. Default: nothing to show.
    virtual void processChanged(HostProcessState const& state);

    // Keeps mouse and keyboard from the windows, or lets them through again. Default: an event filter on the
    // application, which spares the active modal window and every widget below one with the dynamic property
    // "alwaysInteractive".
    virtual void setInteractionDisabled(bool disabled);

    // Folders, absolute, without "/" at the end; not made here. Default: under $HALVANE_HOME if that is set,
    // else under the user's XDG folders.
    virtual QString programDataPath() const;
    virtual QString settingsFilePath() const;

    // Default: log/halvane.log under the program data.
    virtual QString logFilePath() const;

    // Default: the stored name, else the name of the system's user; always fit for a file name.
    virtual QString activeUserName() const;

    // Default: whether less than a tenth of the machine's memory is available.
    virtual bool memoryLoadLimit() const;

    // --- state, kept here so that a fresh object is a fresh host ---

    QSettings& settings();

    void setCanClose(bool canClose);
    bool canClose() const;

    // The 3D view says whether the user drags in it.
    void setFastRenderingMode(bool fast);
    bool fastRenderingMode() const;

    // Long processes; see CHVProcess.
    void beginProcess(int totalSteps, tag_eLongProcessTypes types, bool abortable, QString const& abortText);
    void endProcess(tag_eLongProcessTypes types);
    void endProcess(tag_eLongProcessTypes types, QString const& message, int delayMs);
    void setProcessMessage(QString const& message, int step, int totalSteps);
    void requestAbort();  // by the user; without effect when nothing abortable runs
    bool isProcessRunning(tag_eLongProcessTypes types) const;
    bool isAborted() const;
    HostProcessState processState() const;

private:
    Q_DISABLE_COPY(HostServices)
    class Private;
    std::unique_ptr<Private> d;
};

// The answer to a question that does no harm when nobody is there to ask: that of a box closed without a
// button, or, where it must be answered, of its last button.
HVUTILS_EXPORT int safeAnswer(HostQuestion const& question);
