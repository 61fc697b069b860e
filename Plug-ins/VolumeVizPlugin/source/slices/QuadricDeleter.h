#pragma once

class GLUquadric;

/// Deletes a quadric of `gluNewQuadric`.
struct QuadricDeleter
{
    void operator()(GLUquadric* quadric) const;
};
