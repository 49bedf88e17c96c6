#include "D_UICharRollDialogBase.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

template <typename T> T* named(T* widget, const QString& name) {
    widget->setObjectName(name);
    return widget;
}

QString rowName(const char* base, int row) {
    return QString::fromLatin1(base) + QString::number(row);
}

// A column of the roll table: a caption over six rows. The rows of all columns share one
// height so that they line up across the frames, which can be hidden one by one.
QVBoxLayout* column(QWidget* frame, const QString& caption, int rowHeight) {
    auto* layout = new QVBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* header = new QLabel(caption, frame);
    header->setFixedHeight(rowHeight);
    header->setStyleSheet(QStringLiteral("font-weight: bold"));
    layout->addWidget(header);
    return layout;
}

} // namespace

D_UICharRollDialogBase::D_UICharRollDialogBase(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("D_UICharRollDialog"));
    setWindowTitle(tr("Ability Scores"));
    BuildRollBox();
    BuildAbilityBox();
    BuildHitPointBox();
    QWidget* increaseBox = BuildIncreaseBox();

    mButtons = named(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this),
                     QStringLiteral("mButtons"));
    mOkButton = mButtons->button(QDialogButtonBox::Ok);
    mOkButton->setObjectName(QStringLiteral("mOkButton"));

    auto* side = new QVBoxLayout;
    side->addWidget(mHitPointBox);
    side->addWidget(increaseBox);
    side->addStretch(1);
    auto* middle = new QHBoxLayout;
    middle->addWidget(mAbilityBox);
    middle->addLayout(side, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(mRollBox);
    layout->addLayout(middle);
    layout->addWidget(mButtons);
}

void D_UICharRollDialogBase::BuildRollBox() {
    mRollBox = named(new QGroupBox(tr("Roll"), this), QStringLiteral("mRollBox"));
    mRollMethodCombo = named(new QComboBox(mRollBox), QStringLiteral("mRollMethodCombo"));
    mCampaignCombo = named(new QComboBox(mRollBox), QStringLiteral("mCampaignCombo"));
    mRollButton = named(new QPushButton(tr("Roll"), mRollBox), QStringLiteral("mRollButton"));
    auto* methodLabel = new QLabel(tr("&Method:"), mRollBox);
    methodLabel->setBuddy(mRollMethodCombo);
    mCampaignLabel = new QLabel(tr("C&ampaign:"), mRollBox);
    mCampaignLabel->setBuddy(mCampaignCombo);
    auto* top = new QHBoxLayout;
    top->addWidget(methodLabel);
    top->addWidget(mRollMethodCombo, 1);
    top->addWidget(mCampaignLabel);
    top->addWidget(mCampaignCombo);
    top->addWidget(mRollButton);

    const int rowHeight = QComboBox().sizeHint().height();
    auto* scores = new QWidget(mRollBox);
    auto* dice = new QWidget(mRollBox);
    mFrameAssign = named(new QWidget(mRollBox), QStringLiteral("mFrameAssign"));
    mFrameReroll = named(new QWidget(mRollBox), QStringLiteral("mFrameReroll"));
    mFrameSwitch = named(new QWidget(mRollBox), QStringLiteral("mFrameSwitch"));
    QVBoxLayout* scoreColumn = column(scores, tr("Score"), rowHeight);
    QVBoxLayout* diceColumn = column(dice, tr("Dice"), rowHeight);
    QVBoxLayout* assignColumn = column(mFrameAssign, tr("Assign to"), rowHeight);
    QVBoxLayout* rerollColumn = column(mFrameReroll, tr("Reroll one"), rowHeight);
    QVBoxLayout* switchColumn = column(mFrameSwitch, tr("Switch two"), rowHeight);
    for (int row = 0; row < kRows; ++row) {
        mRolled[row] = named(new QLabel(scores), rowName("mRolled", row));
        mDice[row] = named(new QLabel(dice), rowName("mDice", row));
        mAssign[row] = named(new QComboBox(mFrameAssign), rowName("mAssign", row));
        mFrameRerollBox[row] = named(new QCheckBox(mFrameReroll), rowName("mFrameReroll", row));
        mFrameSwitchBox[row] = named(new QCheckBox(mFrameSwitch), rowName("mFrameSwitch", row));
        QWidget* const cells[] = {mRolled[row], mDice[row], mAssign[row], mFrameRerollBox[row],
                                  mFrameSwitchBox[row]};
        QVBoxLayout* const columns[] = {scoreColumn, diceColumn, assignColumn, rerollColumn,
                                        switchColumn};
        for (int c = 0; c < 5; ++c) {
            cells[c]->setFixedHeight(rowHeight);
            columns[c]->addWidget(cells[c]);
        }
        mDice[row]->setMinimumWidth(mDice[row]->fontMetrics().horizontalAdvance("6 6 6 6 6 "));
    }
    mAssignButton = named(new QPushButton(tr("Assign"), mFrameAssign), "mAssignButton");
    mRerollButton = named(new QPushButton(tr("Reroll"), mFrameReroll), "mRerollButton");
    mSwitchButton = named(new QPushButton(tr("Switch"), mFrameSwitch), "mSwitchButton");
    assignColumn->addWidget(mAssignButton);
    rerollColumn->addWidget(mRerollButton);
    switchColumn->addWidget(mSwitchButton);
    for (QVBoxLayout* layout : {scoreColumn, diceColumn, assignColumn, rerollColumn, switchColumn})
        layout->addStretch(1);

    mRollTable = named(new QWidget(mRollBox), QStringLiteral("mRollTable"));
    auto* table = new QHBoxLayout(mRollTable);
    table->setContentsMargins(0, 0, 0, 0);
    for (QWidget* frame : {scores, dice, mFrameAssign, mFrameReroll, mFrameSwitch})
        table->addWidget(frame);
    table->addStretch(1);
    auto* layout = new QVBoxLayout(mRollBox);
    layout->addLayout(top);
    layout->addWidget(mRollTable);
}

void D_UICharRollDialogBase::BuildAbilityBox() {
    mAbilityBox = named(new QGroupBox(tr("Abilities"), this), QStringLiteral("mAbilityBox"));
    auto* grid = new QGridLayout(mAbilityBox);
    mAddHeader = new QLabel(tr("Buy (+8)"), mAbilityBox);
    const QString headers[] = {tr("Ability"), QString(), tr("New"), tr("Now"), tr("User")};
    for (int c = 0; c < 5; ++c) {
        QLabel* header = c == 1 ? mAddHeader : new QLabel(headers[c], mAbilityBox);
        header->setStyleSheet(QStringLiteral("font-weight: bold"));
        grid->addWidget(header, 0, c);
    }
    const QString names[] = {tr("Strength"),     tr("Dexterity"), tr("Constitution"),
                             tr("Intelligence"), tr("Wisdom"),    tr("Charisma")};
    for (int row = 0; row < kRows; ++row) {
        mFrameAdd[row] = named(new QSpinBox(mAbilityBox), rowName("mFrameAdd", row));
        mNewScore[row] = named(new QLabel(mAbilityBox), rowName("mNewScore", row));
        mCurrentScore[row] = named(new QLabel(mAbilityBox), rowName("mCurrentScore", row));
        mUser[row] = named(new QSpinBox(mAbilityBox), rowName("mUser", row));
        mUser[row]->setRange(-kMaxUserModifier, kMaxUserModifier);
        auto* name = new QLabel(names[row], mAbilityBox);
        name->setBuddy(mUser[row]);
        grid->addWidget(name, row + 1, 0);
        grid->addWidget(mFrameAdd[row], row + 1, 1);
        grid->addWidget(mNewScore[row], row + 1, 2);
        grid->addWidget(mCurrentScore[row], row + 1, 3);
        grid->addWidget(mUser[row], row + 1, 4);
    }
    mPointsSpent = named(new QLabel(mAbilityBox), QStringLiteral("mPointsSpent"));
    mPointsLeft = named(new QLabel(mAbilityBox), QStringLiteral("mPointsLeft"));
    grid->addWidget(mPointsSpent, kRows + 1, 0, 1, 2);
    grid->addWidget(mPointsLeft, kRows + 1, 2, 1, 3);
    grid->setRowStretch(kRows + 2, 1);
}

void D_UICharRollDialogBase::BuildHitPointBox() {
    mHitPointBox = named(new QGroupBox(tr("Hit points"), this), QStringLiteral("mHitPointBox"));
    mUserHP = named(new QSpinBox(mHitPointBox), QStringLiteral("mUserHP"));
    mUserHP->setRange(-kMaxUserHitPoints, kMaxUserHitPoints);
    mRollHPButton = named(new QPushButton(tr("Roll &HP"), mHitPointBox), "mRollHPButton");
    mRolledHP = named(new QLabel(mHitPointBox), QStringLiteral("mRolledHP"));
    mMiscHP = named(new QLabel(mHitPointBox), QStringLiteral("mMiscHP"));
    mTotalHP = named(new QLabel(mHitPointBox), QStringLiteral("mTotalHP"));
    auto* grid = new QGridLayout(mHitPointBox);
    auto* userLabel = new QLabel(tr("&User:"), mHitPointBox);
    userLabel->setBuddy(mUserHP);
    grid->addWidget(userLabel, 0, 0);
    grid->addWidget(mUserHP, 0, 1);
    grid->addWidget(mRollHPButton, 0, 2);
    const QString captions[] = {tr("Base:"), tr("Misc:"), tr("Total:")};
    QLabel* const values[] = {mRolledHP, mMiscHP, mTotalHP};
    for (int c = 0; c < 3; ++c) {
        grid->addWidget(new QLabel(captions[c], mHitPointBox), 1, c * 2);
        grid->addWidget(values[c], 1, c * 2 + 1);
    }
}

QWidget* D_UICharRollDialogBase::BuildIncreaseBox() {
    auto* box = named(new QGroupBox(tr("Increases"), this), QStringLiteral("mIncreaseBox"));
    mEarnedCombo = named(new QComboBox(box), QStringLiteral("mEarnedCombo"));
    mAddEarned = named(new QPushButton(tr("Add &earned"), box), QStringLiteral("mAddEarned"));
    mEarnedTotal = named(new QLabel(box), QStringLiteral("mEarnedTotal"));
    mEarnedLevel = named(new QLabel(box), QStringLiteral("mEarnedLevel"));
    mInherentCombo = named(new QComboBox(box), QStringLiteral("mInherentCombo"));
    mInherentBonus = named(new QSpinBox(box), QStringLiteral("mInherentBonus"));
    mInherentBonus->setPrefix(QStringLiteral("+"));
    mInherentLevel = named(new QSpinBox(box), QStringLiteral("mInherentLevel"));
    mAddInherent = named(new QPushButton(tr("Add &inherent"), box), "mAddInherent");
    mBonusesText = named(new QLabel(box), QStringLiteral("mBonusesText"));
    mBonusesText->setTextFormat(Qt::RichText);
    mBonusesText->setWordWrap(true);

    auto* grid = new QGridLayout(box);
    grid->addWidget(new QLabel(tr("Earned:"), box), 0, 0);
    grid->addWidget(mEarnedCombo, 0, 1);
    grid->addWidget(mAddEarned, 0, 2);
    grid->addWidget(mEarnedTotal, 1, 1);
    grid->addWidget(mEarnedLevel, 1, 2);
    grid->addWidget(new QLabel(tr("Inherent:"), box), 2, 0);
    grid->addWidget(mInherentCombo, 2, 1);
    grid->addWidget(mAddInherent, 2, 2);
    auto* levelLabel = new QLabel(tr("at class &level"), box);
    levelLabel->setBuddy(mInherentLevel);
    auto* inherentRow = new QHBoxLayout;
    inherentRow->addWidget(mInherentBonus);
    inherentRow->addWidget(levelLabel);
    inherentRow->addWidget(mInherentLevel);
    grid->addLayout(inherentRow, 3, 1, 1, 2);
    grid->addWidget(mBonusesText, 4, 0, 1, 3);
    return box;
}
