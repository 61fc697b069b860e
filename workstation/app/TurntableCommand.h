#pragma once

#include "Turntable.h"

#include <QObject>
#include <QStringList>

#include <functional>

class ApplicationServices;
class MainWindow;
class QAction;

/// The command "Export Turntable Movie...": asks for a file and writes a turn of the 3D view in front to it.
class TurntableCommand : public QObject
{
    Q_OBJECT

public:
    /// Endings of the movies that can be written; asked for when a view could be turned.
    using MovieTypes = std::function<QStringList()>;

    TurntableCommand(MainWindow& window, ApplicationServices& services);
    TurntableCommand(MainWindow& window, ApplicationServices& services, MovieTypes movieTypes);

    QAction* action() const { return m_pAction; }

    void setTurn(const Turntable& turn) { m_turn = turn; }

    /// Enables the action where there is something to turn and to write; its tool tip tells what is missing.
    void refresh();

private:
    void start();

    MainWindow& m_window;
    ApplicationServices& m_services;
    const MovieTypes m_movieTypes;
    Turntable m_turn;
    QAction* m_pAction;
};
