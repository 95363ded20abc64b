#pragma once

#include <QProxyStyle>

/// The application's style with more room between the columns of a table, in cells and header.
class CVTableStyle final : public QProxyStyle {
    Q_OBJECT

public:
    explicit CVTableStyle(QObject* parent) { setParent(parent); }

    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
};
