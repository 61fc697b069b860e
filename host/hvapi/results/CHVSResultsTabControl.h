#pragma once

#include "hvapi/hvapi_global.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>

class QComboBox;
class QPushButton;
class QWidget;

/// The saved-results strip of a palette: a list of names with the buttons Delete, Load and Save. It fills the
/// list and enables the buttons; what the buttons do is the palette's affair.
class HVAPI_EXPORT CHVSResultsTabControl : public QObject
{
    Q_OBJECT

public:
    /// The widgets stay the caller's. Any of them may be null or may go before this object.
    CHVSResultsTabControl(QWidget* parent, QComboBox* names, QPushButton* deleteButton,
                          QPushButton* loadButton, QPushButton* saveButton);
    ~CHVSResultsTabControl() override;

    /// Prefix of generated names, and the section of the database that is shown.
    void setTags(QString autoPrefix, QString section);
    /// Path of the database below the sequence's folder.
    void setSettingFileName(QString relativePath);

    /// Refills the list from the sequence's database and sets the buttons. The entry "(new)" is offered, as
    /// the first one, when results can be saved: when the sequence exists and the modified flag is set. The
    /// entry shown before stays when it is still there, and so does a name that the user has typed for the
    /// same sequence. With nothing to offer the list shows "<< No Data available >>". No signal of the combo
    /// box is emitted.
    void updateSavedResultsForSelSeqId(QString sequenceId);

    /// The unsaved-work flag of the visible sequence. Setting it does not refill the list.
    void setResultModifiedFlag(bool modified);
    bool getResultModifiedFlag();

    /// Enables or disables the buttons, until the list is refilled or shows another entry.
    void setStatusOfButtons(bool deleteEnabled, bool loadEnabled, bool saveEnabled);

    /// Names of the saved results that the list offers, "(new)" not among them.
    QStringList getSavedMenuNames();

private:
    struct Private;
    std::unique_ptr<Private> d;
};
