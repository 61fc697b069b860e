#pragma once

#include "hvspinbox/hvspinbox_global.h"

#include <QDoubleSpinBox>

// A spin box for real numbers of any magnitude: very small and very large ones are shown and taken in
// exponent notation.
class HVSPINBOX_EXPORT QDoubleSpinBoxEx : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit QDoubleSpinBoxEx(QWidget* parent = nullptr);
    ~QDoubleSpinBoxEx() override;

protected:
    QString textFromValue(double value) const override;
    double valueFromText(QString const& text) const override;
    QValidator::State validate(QString& text, int& position) const override;

    // Sets the step to a tenth of the magnitude of the present value.
    virtual void updateDynamicRange();
};
