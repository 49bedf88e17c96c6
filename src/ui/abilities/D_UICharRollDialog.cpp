#include "D_UICharRollDialog.h"

#include "DCharHistory.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DDatabase.h"
#include "DDieRoller.h"
#include "DHandBook.h"
#include "DRollTables.h"
#include "D_UIWaitCursor.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

#include <algorithm>
#include <exception>
#include <memory>
#include <numeric>
#include <utility>

namespace {

constexpr int kRefereeAbilityRolls = 0;
constexpr int kRefereeHitPointRolls = 1;
constexpr unsigned kAllAbilityChanges = 0x3F;

int sumLessLowest(const FCArray<int>& dice) {
    if (dice.IsEmpty())
        return 0;
    return std::accumulate(dice.begin(), dice.end(), 0) -
           *std::min_element(dice.begin(), dice.end());
}

QString diceText(const FCArray<int>& dice) {
    QStringList parts;
    for (int die : dice)
        parts << QString::number(die);
    return parts.join(' ');
}

QString scoreText(int score) {
    if (score < 0)
        return QStringLiteral("-");
    const int modifier = DHandBook::GetAbilityModifier(score);
    return QStringLiteral("%1 (%2%3)").arg(score).arg(modifier >= 0 ? "+" : "").arg(modifier);
}

} // namespace

D_UICharRollDialog::D_UICharRollDialog(QWidget* parent) : D_UICharRollDialogBase(parent) {
    FillCombos();
    connect(mRollMethodCombo, &QComboBox::currentIndexChanged, this,
            &D_UICharRollDialog::RollMethodChanged);
    connect(mCampaignCombo, &QComboBox::currentIndexChanged, this,
            &D_UICharRollDialog::CampaignComboChanged);
    void (D_UICharRollDialog::*const assignSlots[kRows])(int) = {
        &D_UICharRollDialog::Assign0Changed, &D_UICharRollDialog::Assign1Changed,
        &D_UICharRollDialog::Assign2Changed, &D_UICharRollDialog::Assign3Changed,
        &D_UICharRollDialog::Assign4Changed, &D_UICharRollDialog::Assign5Changed};
    for (int row = 0; row < kRows; ++row) {
        connect(mAssign[row], &QComboBox::currentIndexChanged, this, assignSlots[row]);
        connect(mUser[row], &QSpinBox::valueChanged, this, &D_UICharRollDialog::UserChanged);
        connect(mFrameAdd[row], &QSpinBox::valueChanged, this, &D_UICharRollDialog::AddChanged);
        connect(mFrameRerollBox[row], &QCheckBox::toggled, this,
                &D_UICharRollDialog::RerollToggled);
        connect(mFrameSwitchBox[row], &QCheckBox::toggled, this,
                &D_UICharRollDialog::SwitchToggled);
    }
    connect(mUserHP, &QSpinBox::valueChanged, this, &D_UICharRollDialog::UserChanged);
    connect(mRollButton, &QPushButton::clicked, this, &D_UICharRollDialog::Roll);
    connect(mAssignButton, &QPushButton::clicked, this, &D_UICharRollDialog::Assign);
    connect(mRerollButton, &QPushButton::clicked, this, &D_UICharRollDialog::Reroll);
    connect(mSwitchButton, &QPushButton::clicked, this, &D_UICharRollDialog::Switch);
    connect(mRollHPButton, &QPushButton::clicked, this, &D_UICharRollDialog::RollHP);
    connect(mEarnedCombo, &QComboBox::currentIndexChanged, this,
            &D_UICharRollDialog::EarnedChanged);
    connect(mInherentCombo, &QComboBox::currentIndexChanged, this,
            &D_UICharRollDialog::InherentChanged);
    connect(mAddEarned, &QPushButton::clicked, this, &D_UICharRollDialog::AddEarned);
    connect(mAddInherent, &QPushButton::clicked, this, &D_UICharRollDialog::AddInherent);
    connect(mButtons, &QDialogButtonBox::accepted, this, &D_UICharRollDialog::accept);
    connect(mButtons, &QDialogButtonBox::rejected, this, &D_UICharRollDialog::reject);
    UpdateButtons();
}

D_UICharRollDialog::~D_UICharRollDialog() {
    if (mCharacter)
        mCharacter->Release();
}

D_UICharRollDialog::MethodRules D_UICharRollDialog::RulesOf(int method) {
    switch (method) {
    case kRoll4d6DropLowest:
        return {true, true, false, false, false};
    case kRoll4d6InOrderRerollOne:
        return {true, false, true, true, false};
    case kRoll3d6:
        return {true, true, false, false, true};
    case kRoll3d6InOrder:
        return {true, false, false, false, true};
    case kRoll5d6DropTwoLowest:
        return {true, true, false, false, true};
    case kRoll4d6ReplaceLowest:
        return {true, true, true, false, false};
    case kRollFixedArray:
        return {false, true, false, false, false};
    default:
        // Point buy, free entry and the monster's method roll and assign nothing.
        return {false, false, false, false, false};
    }
}

bool D_UICharRollDialog::IsPointBuy(int method) {
    return method == kRollPointBuy || method == kRollPointBuyCampaign || method == kRollFreeEntry;
}

QString D_UICharRollDialog::RollButtonText(int method, const QList<int>& scores) {
    if (!RulesOf(method).rerollGate)
        return tr("Reroll");
    if (scores.isEmpty())
        return tr("Roll");
    const int highest = *std::max_element(scores.begin(), scores.end());
    int modifiers = 0;
    for (int score : scores)
        modifiers += DHandBook::GetAbilityModifier(score);
    // The rules let too poor a set be rolled again; 5d6 sets are judged more strictly.
    const bool poor = method == kRoll5d6DropTwoLowest ? highest < 15 || modifiers < 3
                                                      : highest < 12 || modifiers < -2;
    return poor ? tr("Reroll") : tr("Roll");
}

int D_UICharRollDialog::PointBuyMaximum(int value, int remaining) {
    const int allowance = DHandBook::ComputeStatPointValue(value + kPointBuyBase) + remaining;
    int maximum = value;
    while (maximum + 1 + kPointBuyBase <= kMaxPointBuyScore &&
           DHandBook::ComputeStatPointValue(maximum + 1 + kPointBuyBase) <= allowance)
        ++maximum;
    return maximum;
}

void D_UICharRollDialog::FillCombos() {
    for (const DRollTables::Row& method : DRollTables::Methods())
        mRollMethodCombo->addItem(method.name, method.id);
    for (const DRollTables::Row& campaign : DRollTables::Campaigns())
        mCampaignCombo->addItem(QStringLiteral("%1 (%2)").arg(campaign.name).arg(campaign.points),
                                campaign.points);
    const QString names[] = {tr("Strength"),     tr("Dexterity"), tr("Constitution"),
                             tr("Intelligence"), tr("Wisdom"),    tr("Charisma")};
    for (int ability = 0; ability < kAbilityCount; ++ability) {
        for (QComboBox* combo : mAssign)
            combo->addItem(names[ability], ability);
        mEarnedCombo->addItem(names[ability], ability);
        mInherentCombo->addItem(names[ability], ability);
    }
}

void D_UICharRollDialog::Setup(DCharacter* character) {
    if (!character)
        return;
    character->Retain();
    if (mCharacter)
        mCharacter->Release();
    mCharacter = character;
    for (DCharHistory* entry : character->GetHistoryArray())
        entry->SetCustomData(entry->getHitpoints());
    mNotedUserHitPoints = character->GetCharacterStat(kStatUserHitPoints);
    for (int a = 0; a < kAbilityCount; ++a) {
        mNotedEarned[size_t(a)] = character->GetEarnedAbilityStatRaw(a);
        mNotedInherent[size_t(a)] = character->GetInherentAbilityStatRaw(a);
        mAssigned[size_t(a)] = character->IsNullAbility(a) ? -1 : 0;
        const QSignalBlocker blockUser(mUser[a]);
        mUser[a]->setValue(character->GetAbilityStatUserMod(a));
        const QSignalBlocker blockAssign(mAssign[a]);
        mAssign[a]->setCurrentIndex(a);
        mRowAbility[size_t(a)] = a;
    }
    {
        const QSignalBlocker block(mUserHP);
        mUserHP->setValue(mNotedUserHitPoints);
    }
    const int base = character->GetCharacterStat(kStatBaseHitPoints);
    const int total = character->GetCharacterStat(kStatHitPoints);
    mRolledHP->setText(QString::number(base));
    mMiscHP->setText(QString::number(total - mNotedUserHitPoints - base));
    mTotalHP->setText(QString::number(total));

    const int nonRaceLevel = character->GetNonRaceCharacterLevel();
    mInherentLevel->setRange(std::min(1, nonRaceLevel), nonRaceLevel);
    if (character->IsMonsterClassOnly()) {
        // A monster keeps its race's scores: only typed-in values and increases remain.
        mRollBox->hide();
        mAddHeader->hide();
        for (QSpinBox* add : mFrameAdd)
            add->hide();
        mPointsSpent->hide();
        mPointsLeft->hide();
        mRollHPButton->hide();
        TakeBackAssignment();
        mMethod = kRollMonster;
        mRules = RulesOf(mMethod);
    } else {
        mMethod = -1;
        const int first = std::max(0, mRollMethodCombo->findData(int(kRoll4d6DropLowest)));
        const QSignalBlocker block(mRollMethodCombo);
        mRollMethodCombo->setCurrentIndex(first);
        RollMethodChanged(first);
    }
    InherentChanged(mInherentCombo->currentIndex());
    ShowRolls();
    ShowScores();
    ShowIncreases();
    UpdateButtons();
}

void D_UICharRollDialog::RollMethodChanged(int index) {
    if (index < 0)
        return;
    const int method = mRollMethodCombo->itemData(index).toInt();
    if (method == mMethod)
        return;
    TakeBackAssignment();
    mMethod = method;
    mRules = RulesOf(method);
    ShowFrames();
    mIsRolled = mIsRerolled = mIsSwitched = false;
    mPointsSpentValue = 0;
    mRolledScores.clear();
    for (FCArray<int>& dice : mDiceLists)
        dice.RemoveAll();
    const bool campaign = method == kRollPointBuyCampaign;
    mCampaignCombo->setEnabled(campaign);
    mCampaignCombo->setVisible(campaign);
    mCampaignLabel->setVisible(campaign);
    if (mRules.rerollGate)
        mRollButton->setText(tr("Roll"));
    switch (method) {
    case kRollPointBuy:
        mBudget = kDefaultBudget;
        break;
    case kRollPointBuyCampaign:
        mBudget = mCampaignCombo->currentData().toInt();
        break;
    case kRollFixedArray:
        mRolledScores = {15, 14, 13, 12, 10, 8};
        mIsRolled = true;
        break;
    case kRollFreeEntry:
        mBudget = kFreeEntryBudget;
        break;
    default:
        break;
    }
    const bool pointBuy = IsPointBuy(method);
    mRollTable->setVisible(!pointBuy);
    mAddHeader->setVisible(pointBuy);
    for (QSpinBox* add : mFrameAdd)
        add->setVisible(pointBuy);
    mPointsSpent->setVisible(pointBuy && method != kRollFreeEntry);
    mPointsLeft->setVisible(pointBuy && method != kRollFreeEntry);
    if (pointBuy)
        ResetPointBuy();
    ShowRolls();
    ShowScores();
    UpdateButtons();
}

void D_UICharRollDialog::CampaignComboChanged(int index) {
    if (index < 0 || mMethod != kRollPointBuyCampaign)
        return;
    const int budget = mCampaignCombo->itemData(index).toInt();
    if (budget < mPointsSpentValue) {
        for (QSpinBox* add : mFrameAdd) {
            const QSignalBlocker block(add);
            add->setValue(0);
        }
    }
    mBudget = budget;
    AddChanged(0);
}

void D_UICharRollDialog::UserChanged(int) {
    UpdateButtons();
}

void D_UICharRollDialog::ResetPointBuy() {
    for (int a = 0; a < kAbilityCount; ++a) {
        const QSignalBlocker block(mFrameAdd[a]);
        const bool none = mCharacter && mCharacter->IsNullAbility(a);
        mFrameAdd[a]->setValue(0);
        mFrameAdd[a]->setEnabled(!none);
        mAssigned[size_t(a)] = none ? -1 : kPointBuyBase;
    }
    mIsAssigned = true;
    AddChanged(0);
}

void D_UICharRollDialog::AddChanged(int) {
    if (!IsPointBuy(mMethod))
        return;
    int spent = 0;
    for (int a = 0; a < kAbilityCount; ++a) {
        if (!mFrameAdd[a]->isEnabled())
            continue;
        const int score = mFrameAdd[a]->value() + kPointBuyBase;
        mAssigned[size_t(a)] = score;
        spent += DHandBook::ComputeStatPointValue(score);
    }
    mPointsSpentValue = spent;
    const int remaining = mBudget - spent;
    for (QSpinBox* add : mFrameAdd) {
        if (!add->isEnabled())
            continue;
        const QSignalBlocker block(add);
        add->setMaximum(PointBuyMaximum(add->value(), remaining));
    }
    mPointsSpent->setText(tr("Points spent: %1").arg(spent));
    mPointsLeft->setText(tr("Points left: %1 of %2").arg(remaining).arg(mBudget));
    ShowScores();
    UpdateButtons();
}

int D_UICharRollDialog::RowAbility(int row) const {
    return mRowAbility[size_t(row)];
}

void D_UICharRollDialog::AssignChanged(int row, int index) {
    const int ability = mAssign[row]->itemData(index).toInt();
    const int previous = mRowAbility[size_t(row)];
    if (ability == previous)
        return;
    // The six rows always name six different abilities: the row that had this one takes the
    // one this row gave up.
    for (int other = 0; other < kRows; ++other) {
        if (other == row || mRowAbility[size_t(other)] != ability)
            continue;
        const QSignalBlocker block(mAssign[other]);
        mAssign[other]->setCurrentIndex(mAssign[other]->findData(previous));
        mRowAbility[size_t(other)] = previous;
        break;
    }
    mRowAbility[size_t(row)] = ability;
    RefreshAssignment();
    ShowScores();
    UpdateButtons();
}

void D_UICharRollDialog::WriteAssignment() {
    for (int row = 0; row < kRows && row < mRolledScores.size(); ++row) {
        const int ability = RowAbility(row);
        const bool none = mCharacter && mCharacter->IsNullAbility(ability);
        mAssigned[size_t(ability)] = none ? -1 : mRolledScores[row];
    }
    mIsAssigned = true;
    mAssignButton->setText(tr("Unassign"));
}

void D_UICharRollDialog::TakeBackAssignment() {
    if (!mIsAssigned)
        return;
    for (int a = 0; a < kAbilityCount; ++a)
        mAssigned[size_t(a)] = mCharacter && mCharacter->IsNullAbility(a) ? -1 : 0;
    mIsAssigned = false;
    mAssignButton->setText(tr("Assign"));
}

void D_UICharRollDialog::AssignInOrder() {
    for (int a = 0; a < kAbilityCount && a < mRolledScores.size(); ++a) {
        const bool none = mCharacter && mCharacter->IsNullAbility(a);
        mAssigned[size_t(a)] = none ? -1 : mRolledScores[a];
    }
    mIsAssigned = true;
}

void D_UICharRollDialog::RefreshAssignment() {
    if (!mIsAssigned || IsPointBuy(mMethod))
        return;
    if (mMethod == kRoll4d6InOrderRerollOne || mMethod == kRoll3d6InOrder)
        AssignInOrder();
    else
        WriteAssignment();
}

void D_UICharRollDialog::Assign() {
    if (mIsAssigned)
        TakeBackAssignment();
    else if (mIsRolled)
        WriteAssignment();
    ShowScores();
    UpdateButtons();
}

void D_UICharRollDialog::Roll() {
    if (!mRules.canRoll || !mCharacter)
        return;
    mCharacter->AdjustCharacterRefereeStat(kRefereeAbilityRolls, 1);
    mRolledScores.clear();
    for (FCArray<int>& dice : mDiceLists)
        mRolledScores.append(DHandBook::RollAbilityStat(DRollMethodType(mMethod), &dice));
    mIsRolled = true;
    mIsRerolled = mIsSwitched = false;
    for (int row = 0; row < kRows; ++row) {
        const QSignalBlocker blockReroll(mFrameRerollBox[row]);
        const QSignalBlocker blockSwitch(mFrameSwitchBox[row]);
        mFrameRerollBox[row]->setChecked(false);
        mFrameSwitchBox[row]->setChecked(false);
    }
    ShowFrames();
    TakeBackAssignment();
    if (mMethod == kRoll4d6InOrderRerollOne || mMethod == kRoll3d6InOrder)
        AssignInOrder();
    mRollButton->setText(RollButtonText(mMethod, mRolledScores));
    ShowRolls();
    ShowScores();
    UpdateButtons();
}

QList<int> D_UICharRollDialog::CheckedRows(const std::array<QCheckBox*, kRows>& boxes) const {
    QList<int> rows;
    for (int row = 0; row < kRows; ++row) {
        if (boxes[size_t(row)]->isChecked())
            rows.append(row);
    }
    return rows;
}

void D_UICharRollDialog::RerollToggled(bool checked) {
    if (checked) {
        for (QCheckBox* box : mFrameRerollBox) {
            if (box != sender())
                box->setChecked(false);
        }
    }
    UpdateButtons();
}

void D_UICharRollDialog::SwitchToggled(bool checked) {
    auto* box = qobject_cast<QCheckBox*>(sender());
    if (checked && box && CheckedRows(mFrameSwitchBox).size() > 2)
        box->setChecked(false);
    UpdateButtons();
}

void D_UICharRollDialog::Reroll() {
    const QList<int> rows = CheckedRows(mFrameRerollBox);
    if (rows.size() != 1 || !mIsRolled || mIsRerolled || !mRules.canReroll)
        return;
    const int row = rows.first();
    FCArray<int>& dice = mDiceLists[size_t(row)];
    if (dice.IsEmpty())
        return;
    if (mMethod == kRoll4d6InOrderRerollOne) {
        const int count = dice.GetCount();
        dice.RemoveAll();
        for (int i = 0; i < count; ++i)
            dice.Add(DDieRoller::RollDie(6));
        mRolledScores[row] = sumLessLowest(dice);
        RefreshAssignment();
        mIsRerolled = true;
        mFrameReroll->hide();
    } else {
        // The new die takes the place of the lowest, the first of equals; this may go on.
        const auto lowest = std::min_element(dice.begin(), dice.end()) - dice.begin();
        dice.At(int(lowest)) = DDieRoller::RollDie(6);
        mRolledScores[row] = sumLessLowest(dice);
        TakeBackAssignment();
    }
    ShowRolls();
    ShowScores();
    UpdateButtons();
}

void D_UICharRollDialog::Switch() {
    const QList<int> rows = CheckedRows(mFrameSwitchBox);
    if (rows.size() != 2 || !mIsRolled || mIsSwitched || !mRules.canSwitch)
        return;
    const auto a = size_t(rows[0]);
    const auto b = size_t(rows[1]);
    mRolledScores.swapItemsAt(rows[0], rows[1]);
    std::swap(mDiceLists[a], mDiceLists[b]);
    std::swap(mAssigned[a], mAssigned[b]);
    RefreshAssignment();
    mIsSwitched = true;
    mFrameSwitch->hide();
    ShowRolls();
    ShowScores();
    UpdateButtons();
}

void D_UICharRollDialog::RollHP() {
    if (!mCharacter)
        return;
    mCharacter->AdjustCharacterRefereeStat(kRefereeHitPointRolls, 1);
    mRolledHitPointTotal = DHandBook::RollForBaseHitPoints(mCharacter, false, 0, 0);
    mRolledHitPoints = true;
    const int misc = DHandBook::ComputeTotalHitPoints(mCharacter) - mNotedUserHitPoints -
                     mCharacter->GetCharacterStat(kStatBaseHitPoints);
    mRolledHP->setText(QString::number(mRolledHitPointTotal));
    mMiscHP->setText(QString::number(misc));
    mTotalHP->setText(QString::number(mRolledHitPointTotal + misc + mUserHP->value()));
    UpdateButtons();
}

void D_UICharRollDialog::EarnedChanged(int) {
    ShowIncreases();
    UpdateButtons();
}

void D_UICharRollDialog::InherentChanged(int index) {
    if (!mCharacter || index < 0)
        return;
    const int ability = mInherentCombo->itemData(index).toInt();
    const int free = kMaxSlots - mCharacter->GetInherentAbilityStat(ability);
    mInherentBonus->setRange(1, std::max(1, free));
    mAddInherent->setEnabled(free > 0 && !mCharacter->IsNullAbility(ability));
}

void D_UICharRollDialog::AddEarned() {
    if (!mCharacter)
        return;
    const int ability = mEarnedCombo->currentData().toInt();
    const int total = mCharacter->GetTotalEarnedAbilityStats();
    if (mCharacter->IsNullAbility(ability) ||
        mCharacter->GetCharacterStat(kStatEarnedAbilityPoints) - total <= 0)
        return;
    const int level = int(mCharacter->GetCharacterLevel()) -
                      mCharacter->GetNonRaceCharacterLevel() + 4 * total + 4;
    mCharacter->SetEarnedAbilityStat(ability, level);
    mIncreasesChanged = true;
    ShowIncreases();
    UpdateButtons();
}

void D_UICharRollDialog::AddInherent() {
    if (!mCharacter)
        return;
    const int ability = mInherentCombo->currentData().toInt();
    if (mCharacter->IsNullAbility(ability))
        return;
    const int level = int(mCharacter->GetCharacterLevel()) -
                      mCharacter->GetNonRaceCharacterLevel() + mInherentLevel->value();
    const int points =
        std::min(mInherentBonus->value(), kMaxSlots - mCharacter->GetInherentAbilityStat(ability));
    for (int point = 0; point < points; ++point)
        mCharacter->SetInherentAbilityStat(ability, level);
    mIncreasesChanged = true;
    InherentChanged(mInherentCombo->currentIndex());
    ShowIncreases();
    UpdateButtons();
}

void D_UICharRollDialog::ShowFrames() {
    mFrameAssign->setVisible(mRules.canAssign);
    mFrameReroll->setVisible(mRules.canReroll);
    mFrameSwitch->setVisible(mRules.canSwitch);
}

void D_UICharRollDialog::ShowRolls() {
    for (int row = 0; row < kRows; ++row) {
        const bool shown = row < mRolledScores.size();
        mRolled[row]->setText(shown ? QString::number(mRolledScores[row]) : QString());
        mDice[row]->setText(diceText(mDiceLists[size_t(row)]));
    }
}

void D_UICharRollDialog::ShowScores() {
    for (int a = 0; a < kAbilityCount; ++a) {
        mNewScore[a]->setText(mIsAssigned ? scoreText(mAssigned[size_t(a)]) : QString());
        mCurrentScore[a]->setText(mCharacter ? scoreText(mCharacter->GetAbilityStat(a))
                                             : QString());
    }
}

void D_UICharRollDialog::ShowIncreases() {
    if (!mCharacter)
        return;
    const int total = mCharacter->GetTotalEarnedAbilityStats();
    const int left = mCharacter->GetCharacterStat(kStatEarnedAbilityPoints) - total;
    const int next = int(mCharacter->GetCharacterLevel()) - mCharacter->GetNonRaceCharacterLevel() +
                     4 * total + 4;
    mAddEarned->setEnabled(left > 0);
    mEarnedTotal->setText(tr("Points left: %1").arg(std::max(0, left)));
    mEarnedLevel->setText(tr("Next at %1 level").arg(QString(DHandBook::BuildLevelString(next))));
    mBonusesText->setText(DHandBook::BuildAbilityBonusesString(mCharacter));
}

bool D_UICharRollDialog::IsOkAllowed() const {
    if (!mCharacter)
        return false;
    if (mRules.canAssign ? mIsAssigned : (!mRules.canRoll || mIsRolled))
        return true;
    for (int a = 0; a < kAbilityCount; ++a) {
        if (mUser[a]->value() != mCharacter->GetAbilityStatUserMod(a))
            return true;
    }
    return mUserHP->value() != mCharacter->GetCharacterStat(kStatUserHitPoints) ||
           mRolledHitPoints || mIncreasesChanged;
}

void D_UICharRollDialog::UpdateButtons() {
    mRollButton->setEnabled(mRules.canRoll);
    mAssignButton->setEnabled(mIsAssigned || mIsRolled);
    mRerollButton->setEnabled(CheckedRows(mFrameRerollBox).size() == 1 && mIsRolled &&
                              !mIsRerolled);
    mSwitchButton->setEnabled(CheckedRows(mFrameSwitchBox).size() == 2 && mIsRolled &&
                              !mIsSwitched);
    mOkButton->setEnabled(IsOkAllowed());
}

void D_UICharRollDialog::accept() {
    if (!mCharacter) {
        QDialog::accept();
        return;
    }
    const D_UIWaitCursor wait;
    DCharacter* const c = mCharacter;
    for (int a = 0; a < kAbilityCount; ++a) {
        const auto ability = DAbilityStatType(a);
        if (mUser[a]->value() != c->GetAbilityStatUserMod(a)) {
            const int before = c->GetAbilityStat(a);
            c->SetAbilityStatUserMod(a, mUser[a]->value());
            c->AddChangeFlag(kAllAbilityChanges);
            DHandBook::HandleAbilityStatChange(c, ability, before, c->GetAbilityStat(a), true);
        }
        if (!mIsAssigned)
            continue;
        // Hit points and skill points already taken follow the new score before it is set.
        const int assigned = mAssigned[size_t(a)];
        const int delta = assigned - c->GetAbilityStatBase(a);
        if (ability == kAbilityConstitution)
            DHandBook::RecomputeAndSetHitPoints(c, 0, delta);
        else if (ability == kAbilityIntelligence)
            DHandBook::RecomputeAndSetSkillPoints(c, 0, delta);
        DHandBook::SetCharacterAbilityStatBase(c, ability, assigned, true);
    }
    if (mIsAssigned) {
        if (!mRules.canRoll)
            c->AdjustCharacterRefereeStat(kRefereeAbilityRolls, 1);
        c->AddChangeFlag(kAllAbilityChanges);
    }
    if (mUserHP->value() != c->GetCharacterStat(kStatUserHitPoints)) {
        c->SetCharacterStat(kStatUserHitPoints, mUserHP->value());
        DHandBook::SetCharacterHitPoints(c, DHandBook::ComputeTotalHitPoints(c), true);
    }
    if (mRolledHitPoints) {
        c->SetCharacterStat(kStatBaseHitPoints, mRolledHitPointTotal);
        DHandBook::SetCharacterHitPoints(c, DHandBook::ComputeTotalHitPoints(c), true);
    }
    if (mIncreasesChanged)
        ApplyIncreases();
    QDialog::accept();
}

void D_UICharRollDialog::ApplyIncreases() {
    DCharacter* const c = mCharacter;
    bool constitution = false;
    for (int a = 0; a < kAbilityCount; ++a) {
        const auto ability = DAbilityStatType(a);
        const std::pair<int, int> passes[] = {
            {mNotedEarned[size_t(a)], c->GetEarnedAbilityStatRaw(a)},
            {mNotedInherent[size_t(a)], c->GetInherentAbilityStatRaw(a)}};
        for (const auto& [noted, present] : passes) {
            const int oldCount = DCharacter::CountPacked(noted);
            const int newCount = DCharacter::CountPacked(present);
            if (oldCount == newCount || c->IsNullAbility(a))
                continue;
            if (ability != kAbilityConstitution && ability != kAbilityIntelligence) {
                DHandBook::SetCharacterAbilityStatBase(
                    c, ability, c->GetAbilityStatBase(a) - oldCount + newCount, true);
                continue;
            }
            for (int slot = oldCount; slot < newCount; ++slot) {
                if (ability == kAbilityConstitution) {
                    DHandBook::RecomputeAndSetHitPoints(c, 0, 1);
                    constitution = true;
                } else {
                    DHandBook::RecomputeAndSetSkillPoints(
                        c, DCharacter::GetPackedSlot(present, slot) - 1, 1);
                }
                DHandBook::SetCharacterAbilityStatBase(c, ability, c->GetAbilityStatBase(a) + 1,
                                                       true);
            }
        }
    }
    if (constitution)
        DHandBook::SetCharacterHitPoints(c, DHandBook::ComputeTotalHitPoints(c), true);
}

void D_UICharRollDialog::reject() {
    if (mCharacter) {
        for (DCharHistory* entry : mCharacter->GetHistoryArray()) {
            entry->setHitpoints(entry->GetCustomData());
            entry->SetCustomData(0);
        }
        mCharacter->SetCharacterStat(kStatUserHitPoints, mNotedUserHitPoints);
        for (int a = 0; a < kAbilityCount; ++a) {
            mCharacter->SetEarnedAbilityStatRaw(a, mNotedEarned[size_t(a)]);
            mCharacter->SetInherentAbilityStatRaw(a, mNotedInherent[size_t(a)]);
        }
    }
    QDialog::reject();
}
