#pragma once

#include <QColor>

/// How far two colours stand apart in brightness, 1 to 21. Text reads well from 4.5 on.
double contrast(const QColor& a, const QColor& b);
