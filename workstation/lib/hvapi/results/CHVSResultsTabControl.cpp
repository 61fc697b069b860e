#include "hvapi/results/CHVSResultsTabControl.h"

#include "hvapi/sequence/CHVSSequenceDataset.h"

#include <QComboBox>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>

namespace {

QString newEntry()
{
    return QStringLiteral("(new)");
}

QString nothingToOffer()
{
    return QStringLiteral("<< No Data available >>");
}

void enable(QWidget* widget, bool on)
{
    if (widget) widget->setEnabled(on);
}

}  // namespace

struct CHVSResultsTabControl::Private
{
    QPointer<QComboBox> names;
    QPointer<QPushButton> deleteButton;
    QPointer<QPushButton> loadButton;
    QPointer<QPushButton> saveButton;
    QString autoPrefix;
    QString section;
    QString settingFile;
    QStringList savedNames;
    bool modified = false;
    QString sequenceId;
    bool sequenceExists = false;

    bool canSave() const { return sequenceExists && modified; }

    /// A name that the user is typing for a result to come.
    bool isTyped(QString const& text) const
    {
        return names->isEditable() && !text.trimmed().isEmpty() && text != nothingToOffer() &&
               names->findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive) < 0;
    }

    void refill(bool sameSequence)
    {
        if (!names) return;
        QSignalBlocker const blocker(names);
        QString const shown = names->currentText();
        bool const keepsText = sameSequence && isTyped(shown);
        names->clear();
        if (canSave()) names->addItem(newEntry());
        names->addItems(savedNames);
        if (names->count() == 0) {
            names->setEditText(nothingToOffer());
        } else {
            int const place = names->findText(shown, Qt::MatchFixedString | Qt::MatchCaseSensitive);
            names->setCurrentIndex(qMax(0, place));
            if (keepsText) names->setEditText(shown);
        }
    }

    void updateButtons()
    {
        bool const savedOneShown = names && savedNames.contains(names->currentText());
        enable(deleteButton, savedOneShown);
        enable(loadButton, savedOneShown);
        enable(saveButton, canSave());
    }
};

CHVSResultsTabControl::CHVSResultsTabControl(QWidget* parent, QComboBox* names, QPushButton* deleteButton,
                                             QPushButton* loadButton, QPushButton* saveButton)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    d->names = names;
    d->deleteButton = deleteButton;
    d->loadButton = loadButton;
    d->saveButton = saveButton;
    if (names) {
        connect(names, qOverload<int>(&QComboBox::currentIndexChanged), this, [this] { d->updateButtons(); });
        connect(names, &QComboBox::editTextChanged, this, [this] { d->updateButtons(); });
    }
}

CHVSResultsTabControl::~CHVSResultsTabControl() = default;

void CHVSResultsTabControl::setTags(QString autoPrefix, QString section)
{
    d->autoPrefix = std::move(autoPrefix);
    d->section = std::move(section);
}

void CHVSResultsTabControl::setSettingFileName(QString relativePath)
{
    d->settingFile = std::move(relativePath);
}

void CHVSResultsTabControl::updateSavedResultsForSelSeqId(QString sequenceId)
{
    d->sequenceExists = CHVSSequenceDataset::getSequenceDataset(sequenceId) != nullptr;
    bool const sameSequence = sequenceId.compare(d->sequenceId, Qt::CaseInsensitive) == 0;
    d->sequenceId = sequenceId;
    d->refill(sameSequence);
    d->updateButtons();
}

void CHVSResultsTabControl::setResultModifiedFlag(bool modified)
{
    d->modified = modified;
}

bool CHVSResultsTabControl::getResultModifiedFlag()
{
    return d->modified;
}

void CHVSResultsTabControl::setStatusOfButtons(bool deleteEnabled, bool loadEnabled, bool saveEnabled)
{
    enable(d->deleteButton, deleteEnabled);
    enable(d->loadButton, loadEnabled);
    enable(d->saveButton, saveEnabled);
}

QStringList CHVSResultsTabControl::getSavedMenuNames()
{
    return d->savedNames;
}
