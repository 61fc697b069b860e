#include "UnattendedWatch.h"

#include "PressScript.h"

#include "hvutils/CHVSLog.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTextEdit>

#include <algorithm>

namespace {

struct Field
{
    QString name;
    QPoint place;
};

/// "Pixel Spacing (Row, Column): (" becomes "Pixel Spacing (Row, Column)"; empty when no letter is in it.
QString cleaned(QString text)
{
    text.remove(QLatin1Char('&'));
    text = text.simplified();
    while (!text.isEmpty()) {
        const QChar last = text.back();
        const bool closes = last == QLatin1Char(')') && text.contains(QLatin1Char('('));
        if (last.isLetterOrNumber() || closes) break;
        text.chop(1);
    }
    const bool hasLetter = std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
    return hasLetter ? text : QString();
}

bool isPartOfAnother(const QWidget& field)
{
    for (const QWidget* parent = field.parentWidget(); parent; parent = parent->parentWidget()) {
        if (qobject_cast<const QAbstractSpinBox*>(parent) || qobject_cast<const QComboBox*>(parent))
            return true;
    }
    return false;
}

bool isFillable(const QWidget& widget)
{
    if (!widget.isVisible() || !widget.isEnabled() || isPartOfAnother(widget)) return false;
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) return !line->isReadOnly();
    if (const auto* text = qobject_cast<const QTextEdit*>(&widget)) return !text->isReadOnly();
    if (const auto* text = qobject_cast<const QPlainTextEdit*>(&widget)) return !text->isReadOnly();
    if (const auto* box = qobject_cast<const QAbstractSpinBox*>(&widget)) return !box->isReadOnly();
    return qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QCheckBox*>(&widget);
}

/// The text that a reader takes for the field's label: that of its buddy, else the nearest one to its left in
/// the same line, else its accessible name.
QString labelOf(const QWidget& field, const QWidget& window, const QList<QLabel*>& labels)
{
    if (const auto* check = qobject_cast<const QCheckBox*>(&field)) return cleaned(check->text());
    for (const QLabel* label : labels) {
        if (label->buddy() == &field) return cleaned(label->text());
    }
    const QRect place(field.mapTo(&window, QPoint(0, 0)), field.size());
    QString nearest;
    int right = -1;
    for (const QLabel* label : labels) {
        const QRect other(label->mapTo(&window, QPoint(0, 0)), label->size());
        const bool inLine = other.top() <= place.center().y() && other.bottom() >= place.center().y();
        const QString text = cleaned(label->text());
        // punctuation between two fields is no label, the text before the first of them is
        if (!inLine || other.right() > place.left() + 2 || other.right() <= right || text.isEmpty()) continue;
        right = other.right();
        nearest = text;
    }
    return nearest.isEmpty() ? cleaned(field.accessibleName()) : nearest;
}

}  // namespace

QStringList fillableFields(const QWidget& window)
{
    QList<QLabel*> labels = window.findChildren<QLabel*>();
    labels.erase(
        std::remove_if(labels.begin(), labels.end(), [](const QLabel* label) { return !label->isVisible(); }),
        labels.end());
    std::vector<Field> fields;
    const QList<QWidget*> widgets = window.findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        if (!isFillable(*widget)) continue;
        const QString name = labelOf(*widget, window, labels);
        if (!name.isEmpty())
            fields.push_back({name, widget->mapTo(&window, QPoint(0, widget->height() / 2))});
    }
    std::stable_sort(fields.begin(), fields.end(), [](const Field& a, const Field& b) {
        return a.place.y() != b.place.y() ? a.place.y() < b.place.y() : a.place.x() < b.place.x();
    });
    QStringList names;
    for (const Field& field : fields)
        names << field.name;
    names.removeDuplicates();
    return names;
}

UnattendedWatch::UnattendedWatch(PressScript* script, QObject* parent)
    : QObject(parent)
    , m_script(script)
{
    m_timer.setInterval(5);
    connect(&m_timer, &QTimer::timeout, this, &UnattendedWatch::look);
    m_timer.start();
}

QString UnattendedWatch::demand() const
{
    if (!wasAsked()) return {};
    QString text = QStringLiteral("\"%1\" asks for values that only you have").arg(m_title);
    if (!m_fields.isEmpty()) text += QStringLiteral(": ") + m_fields.join(QStringLiteral(", "));
    return text;
}

void UnattendedWatch::look()
{
    QWidget* window = QApplication::activeModalWidget();
    // what shows progress asks nothing and closes by itself
    if (!window || !window->isVisible() || window->inherits("CHVSProgressBar") ||
        qobject_cast<QProgressDialog*>(window))
        return;
    answer(*window);
}

void UnattendedWatch::answer(QWidget& window)
{
    if (m_script && m_script->pressIn(window)) return;
    if (auto* box = qobject_cast<QMessageBox*>(&window)) {
        QAbstractButton* button = box->escapeButton() ? box->escapeButton() : box->defaultButton();
        if (!button && !box->buttons().isEmpty()) button = box->buttons().last();
        const QString pressed = button ? QString(button->text()).remove(QLatin1Char('&')) : QString();
        getLogObject()->log(
            QStringLiteral("Nobody to ask: \"%1\" Answered: %2.").arg(box->text().simplified(), pressed),
            QString(), 0, QString(), CHVSLog::eWarning, false);
        if (button)
            button->click();
        else
            box->reject();
        return;
    }
    if (m_title.isEmpty()) {
        m_title = window.windowTitle().isEmpty() ? QStringLiteral("A dialog") : window.windowTitle();
        m_fields = qobject_cast<QFileDialog*>(&window) ? QStringList{QStringLiteral("File name")}
                                                       : fillableFields(window);
        getLogObject()->log(demand(), QString(), 0, QString(), CHVSLog::eWarning, false);
    }
    if (auto* dialog = qobject_cast<QDialog*>(&window))
        dialog->reject();
    else
        window.close();
}
