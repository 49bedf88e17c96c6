#pragma once

#include <QWidget>

#include <array>

class QCheckBox;
class QComboBox;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;
class QTabWidget;
class QTreeWidget;

// The form of the die roller: widgets and layout only, no behaviour. Each widget's object name
// is its member's name, so tests and style sheets can find it.
class DiceGenFrameBase : public QWidget {
    Q_OBJECT
public:
    explicit DiceGenFrameBase(QWidget* parent = nullptr);

    static constexpr int kQuickButtonCount = 9;
    // Set-up limits: a roll stays far from int overflow, however the fields are filled.
    static constexpr int kMaxDieCount = 1000;
    static constexpr int kMaxModifier = 1000;
    static constexpr int kMaxSets = 1000;

protected:
    QSpinBox* mNumber = nullptr;
    QComboBox* mDie = nullptr;
    QSpinBox* mModifier = nullptr;
    QSpinBox* mSets = nullptr;
    QPushButton* mRollButton = nullptr;
    QCheckBox* mAppend = nullptr;
    QTreeWidget* mRollList = nullptr;
    // Tab 0 holds the roll list, tab 1 the list as a stat block.
    QTabWidget* mTabs = nullptr;
    QPlainTextEdit* mStatBlock = nullptr;
    // By quick-button id 1 to 9; slot 0 stays empty so ids index directly.
    std::array<QPushButton*, kQuickButtonCount + 1> mQuickButtons{};
};
