#pragma once

#include "D_UICharRollDialogBase.h"

#include "FCArray.h"

#include <QList>

class DCharacter;

// Rolls, buys or assigns a character's six ability scores, takes typed-in modifiers and hit
// points, and records earned and inherent increases. Nothing reaches the character's scores
// before accept(); rolled hit points and added increases do, and reject() takes them back.
class D_UICharRollDialog : public D_UICharRollDialogBase {
    Q_OBJECT
public:
    explicit D_UICharRollDialog(QWidget* parent = nullptr);
    ~D_UICharRollDialog() override;

    // Works on `character` (kept alive until the dialog goes).
    void Setup(DCharacter* character);

    // What the roll button reads after a roll: "Reroll" when the scores are poor enough to
    // be rolled again under the method's rule, else "Roll".
    static QString RollButtonText(int method, const QList<int>& scores);
    // Points above 8 that a point-buy spin box may reach: walking up while the cost stays
    // within its present cost plus what is left.
    static int PointBuyMaximum(int value, int remaining);

    int GetMethod() const { return mMethod; }
    const QList<int>& GetRolledScores() const { return mRolledScores; }
    const FCArray<int>& GetDice(int row) const { return mDiceLists[size_t(row)]; }
    int GetAssignedScore(int ability) const { return mAssigned[size_t(ability)]; }
    bool IsAssigned() const { return mIsAssigned; }
    int GetBudget() const { return mBudget; }
    int GetPointsSpent() const { return mPointsSpentValue; }

    static constexpr int kPointBuyBase = 8;
    static constexpr int kMaxPointBuyScore = 99;
    static constexpr int kFreeEntryBudget = 10000;
    static constexpr int kDefaultBudget = 25;
    static constexpr int kMaxSlots = 5;

public slots:
    void RollMethodChanged(int index);
    void CampaignComboChanged(int index);
    void UserChanged(int value);
    void Assign0Changed(int index) { AssignChanged(0, index); }
    void Assign1Changed(int index) { AssignChanged(1, index); }
    void Assign2Changed(int index) { AssignChanged(2, index); }
    void Assign3Changed(int index) { AssignChanged(3, index); }
    void Assign4Changed(int index) { AssignChanged(4, index); }
    void Assign5Changed(int index) { AssignChanged(5, index); }
    void AddChanged(int value);
    void RerollToggled(bool checked);
    void SwitchToggled(bool checked);
    void Roll();
    void Assign();
    void Reroll();
    void Switch();
    void RollHP();
    void EarnedChanged(int index);
    void InherentChanged(int index);
    void AddEarned();
    void AddInherent();
    void accept() override;
    void reject() override;

private:
    struct MethodRules {
        bool canRoll;
        bool canAssign;
        bool canReroll;
        bool canSwitch;
        bool rerollGate;
    };
    static MethodRules RulesOf(int method);
    static bool IsPointBuy(int method);

    void FillCombos();
    void AssignChanged(int row, int index);
    int RowAbility(int row) const;
    void WriteAssignment();
    void TakeBackAssignment();
    void AssignInOrder();
    void RefreshAssignment();
    void ResetPointBuy();
    QList<int> CheckedRows(const std::array<QCheckBox*, kRows>& boxes) const;
    void ShowFrames();
    void ShowRolls();
    void ShowScores();
    void ShowIncreases();
    void UpdateButtons();
    bool IsOkAllowed() const;
    void ApplyIncreases();

    DCharacter* mCharacter = nullptr;
    int mMethod = -1;
    QList<int> mRolledScores;
    std::array<FCArray<int>, kRows> mDiceLists;
    std::array<int, kRows> mAssigned{};
    std::array<int, kRows> mRowAbility{};
    int mBudget = kDefaultBudget;
    int mPointsSpentValue = 0;
    MethodRules mRules{};
    bool mIsRolled = false;
    bool mIsRerolled = false;
    bool mIsSwitched = false;
    bool mIsAssigned = false;
    bool mRolledHitPoints = false;
    bool mIncreasesChanged = false;
    int mRolledHitPointTotal = 0;
    // Noted at setup, so that reject() can restore what the dialog wrote at once.
    int mNotedUserHitPoints = 0;
    std::array<int, kRows> mNotedEarned{};
    std::array<int, kRows> mNotedInherent{};
};
