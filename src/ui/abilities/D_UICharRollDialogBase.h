#pragma once

#include <QDialog>

#include <array>

class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QSpinBox;
class QWidget;

// The form of the ability score dialog: widgets and layout only, no behaviour. Each widget's
// object name is its member's name (rows numbered 0 to 5), so tests can find it.
class D_UICharRollDialogBase : public QDialog {
    Q_OBJECT
public:
    explicit D_UICharRollDialogBase(QWidget* parent = nullptr);

    static constexpr int kRows = 6;
    // Limits of the typed-in values; far beyond any score the rules make.
    static constexpr int kMaxUserModifier = 99;
    static constexpr int kMaxUserHitPoints = 9999;

protected:
    template <typename T> using Row = std::array<T*, kRows>;

    // Method and rolls.
    QGroupBox* mRollBox = nullptr;
    QComboBox* mRollMethodCombo = nullptr;
    QLabel* mCampaignLabel = nullptr;
    QComboBox* mCampaignCombo = nullptr;
    QPushButton* mRollButton = nullptr;
    // The scores, dice and the frames beside them; point buy has no use for it.
    QWidget* mRollTable = nullptr;
    Row<QLabel> mRolled{};
    Row<QLabel> mDice{};
    QWidget* mFrameAssign = nullptr;
    Row<QComboBox> mAssign{};
    QPushButton* mAssignButton = nullptr;
    QWidget* mFrameReroll = nullptr;
    Row<QCheckBox> mFrameRerollBox{};
    QPushButton* mRerollButton = nullptr;
    QWidget* mFrameSwitch = nullptr;
    Row<QCheckBox> mFrameSwitchBox{};
    QPushButton* mSwitchButton = nullptr;

    // Abilities: point buy, the new score, the current score, the user modifier.
    QGroupBox* mAbilityBox = nullptr;
    QLabel* mAddHeader = nullptr;
    Row<QSpinBox> mFrameAdd{};
    Row<QLabel> mNewScore{};
    Row<QLabel> mCurrentScore{};
    Row<QSpinBox> mUser{};
    QLabel* mPointsSpent = nullptr;
    QLabel* mPointsLeft = nullptr;

    // Hit points.
    QGroupBox* mHitPointBox = nullptr;
    QSpinBox* mUserHP = nullptr;
    QPushButton* mRollHPButton = nullptr;
    QLabel* mRolledHP = nullptr;
    QLabel* mMiscHP = nullptr;
    QLabel* mTotalHP = nullptr;

    // Earned and inherent increases.
    QComboBox* mEarnedCombo = nullptr;
    QPushButton* mAddEarned = nullptr;
    QLabel* mEarnedTotal = nullptr;
    QLabel* mEarnedLevel = nullptr;
    QComboBox* mInherentCombo = nullptr;
    QSpinBox* mInherentBonus = nullptr;
    QSpinBox* mInherentLevel = nullptr;
    QPushButton* mAddInherent = nullptr;
    QLabel* mBonusesText = nullptr;

    QDialogButtonBox* mButtons = nullptr;
    QPushButton* mOkButton = nullptr;

private:
    void BuildRollBox();
    void BuildAbilityBox();
    void BuildHitPointBox();
    QWidget* BuildIncreaseBox();
};
