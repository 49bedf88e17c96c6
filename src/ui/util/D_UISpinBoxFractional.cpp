#include "D_UISpinBoxFractional.h"

#include <algorithm>
#include <cmath>

namespace {

// A stored value within this many thousandths of a label shows the label: 1/6 is kept as 166
// or 167 depending on how it was reached.
constexpr int kLabelReach = 2;

} // namespace

D_UISpinBoxFractional::D_UISpinBoxFractional(QWidget* parent) : QSpinBox(parent) {
    SetRange(0.0, 100.0, 1.0);
}

void D_UISpinBoxFractional::SetRange(double minimum, double maximum, double step) {
    setRange(int(minimum * 1000.0), int(maximum * 1000.0));
    mStep = std::max(1, int(step * 1000.0));
}

void D_UISpinBoxFractional::SetLabels(std::vector<Label> labels) {
    std::sort(labels.begin(), labels.end(),
              [](const Label& a, const Label& b) { return a.value < b.value; });
    mLabels = std::move(labels);
    update();
}

void D_UISpinBoxFractional::SetValue(double value) {
    setValue(int(value * 1000.0));
}

QString D_UISpinBoxFractional::textFromValue(int value) const {
    for (const Label& label : mLabels) {
        if (std::abs(value - label.value) <= kLabelReach)
            return label.text;
    }
    if (!mLabels.empty() && value < mLabels.back().value)
        return QStringLiteral("%1.%2").arg(value / 1000).arg(value % 1000, 3, 10, QChar('0'));
    return QString::number(value / mStep * mStep / 1000.0);
}

int D_UISpinBoxFractional::valueFromText(const QString& text) const {
    const QString trimmed = text.trimmed();
    for (const Label& label : mLabels) {
        if (label.text == trimmed)
            return label.value;
    }
    bool ok = false;
    const double number = trimmed.toDouble(&ok);
    return ok ? int(number * 1000.0) : value();
}

QValidator::State D_UISpinBoxFractional::validate(QString& text, int&) const {
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return QValidator::Intermediate;
    for (const Label& label : mLabels) {
        if (label.text == trimmed)
            return QValidator::Acceptable;
        if (label.text.startsWith(trimmed))
            return QValidator::Intermediate;
    }
    bool ok = false;
    trimmed.toDouble(&ok);
    return ok ? QValidator::Acceptable : QValidator::Invalid;
}

void D_UISpinBoxFractional::stepBy(int steps) {
    int current = value();
    // Below 1 the steps walk the labels; from 1 on they are whole line steps.
    while (steps != 0) {
        int next = current;
        if (steps > 0) {
            const auto label = std::find_if(mLabels.begin(), mLabels.end(), [&](const Label& l) {
                return l.value < 1000 && l.value > current + kLabelReach;
            });
            next = label != mLabels.end() ? label->value : (current / mStep + 1) * mStep;
            --steps;
        } else {
            const auto label = std::find_if(mLabels.rbegin(), mLabels.rend(), [&](const Label& l) {
                return l.value < current - kLabelReach;
            });
            const int whole = (current - 1) / mStep * mStep;
            next = current <= 1000 && label != mLabels.rend() ? label->value
                                                              : std::max(whole, minimum());
            ++steps;
        }
        current = std::clamp(next, minimum(), maximum());
    }
    setValue(current);
}
