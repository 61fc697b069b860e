#pragma once

#include "hvspinbox/hvspinbox_global.h"

#include <QDoubleSpinBox>

// A spin box for real numbers of any magnitude: a number is shown by its fewest digits that tell it from all
// others, a very small or very large one in exponent notation, and either notation can be typed. Values are
// not rounded to decimals, and the step follows the magnitude of the value.
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

    // Sets the step to a tenth of the magnitude of the present value: 10 for 250, and 0.1 for 0. Called at
    // each change of the value.
    virtual void updateDynamicRange();

private:
    QString bare(QString const& text) const;
};
