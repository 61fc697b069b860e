#pragma once

#include <QPolygonF>

#include <initializer_list>

inline QPolygonF polygon(std::initializer_list<QPointF> points)
{
    return QPolygonF(QVector<QPointF>(points));
}
