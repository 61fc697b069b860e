#pragma once

#include <QIcon>

/// Line icons drawn at whatever size is asked for; greyed by themselves when disabled.
namespace Icons {

enum class Shape
{
    Program,
    NewScene,
    Open,
    Recent,
    Exit,
    Tile,
    Cascade,
    CloseWindow,
    Clear,
    Copy,
    Save,
    Information,
    Status,
    Warning,
    Error,
    Expanded,
    Collapsed
};

QIcon make(Shape shape);

}  // namespace Icons
