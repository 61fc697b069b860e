#pragma once

#include <QApplication>

/// The application object. A slot or event handler that throws ends there, with an entry in the log, and not
/// the program.
class Application : public QApplication
{
    Q_OBJECT

public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;
};
