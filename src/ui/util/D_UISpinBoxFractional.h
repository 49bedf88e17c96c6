#pragma once

#include <QSpinBox>

#include <vector>

// A spin box over fractional values such as a challenge rating: it counts in thousandths,
// shows fixed labels ("1/8", "1/2") for the values that have one, and steps through those
// labels below 1 and by whole steps above.
class D_UISpinBoxFractional : public QSpinBox {
    Q_OBJECT
public:
    struct Label {
        int value; // thousandths
        QString text;
    };

    explicit D_UISpinBoxFractional(QWidget* parent = nullptr);

    // Range and line step in real values.
    void SetRange(double minimum, double maximum, double step);
    void SetLabels(std::vector<Label> labels);
    double GetValue() const { return value() / 1000.0; }
    // Truncated to thousandths.
    void SetValue(double value);

    void stepBy(int steps) override;

protected:
    QString textFromValue(int value) const override;
    int valueFromText(const QString& text) const override;
    QValidator::State validate(QString& text, int& position) const override;

private:
    int mStep = 1000;
    std::vector<Label> mLabels;
};
