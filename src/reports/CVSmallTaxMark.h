#pragma once

class QPainter;
class QRectF;

/// Draws "smalltax", the mark of a taxed transaction, into a square of the painter's coordinates: a slip of paper with
/// a percent sign.
void CVDrawSmallTax(QPainter& painter, const QRectF& square);
