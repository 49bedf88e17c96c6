#include "D_UIMonsterGenFrame.h"

#include "DCharacter.h"
#include "DCharacterGenerator.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DFileObject.h"
#include "DObjectManager.h"
#include "DRace.h"
#include "D_UIMonsterRaceItem.h"
#include "D_UIUtil.h"
#include "D_UIWaitCursor.h"
#include "FCReleaser.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int kPlayerRaceCategory = 1;

// The race's header alone: enough for the list and the advancement range.
FCRef<DRace> raceHeader(const DFileObject* file) {
    return FCRef<DRace>(file ? DRace::CreateFromFile(file->GetAccessFilePath(), true) : nullptr);
}

} // namespace

D_UIMonsterGenFrame::D_UIMonsterGenFrame(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("D_UIMonsterGenFrame"));
    setWindowTitle(tr("Monster Generator"));
    Setup();
    FillList();
    itemSelected();
}

void D_UIMonsterGenFrame::Setup() {
    mList = new QTreeWidget(this);
    mList->setObjectName(QStringLiteral("mList"));
    mList->setHeaderLabels({tr("Monster"), tr("Type"), tr("HD")});
    mList->header()->setSectionResizeMode(D_UIMonsterRaceItem::kColumnName, QHeaderView::Stretch);
    mList->header()->setStretchLastSection(false);
    mList->setSortingEnabled(true);
    mList->sortByColumn(D_UIMonsterRaceItem::kColumnName, Qt::AscendingOrder);
    mAdvance = new QSpinBox(this);
    mAdvance->setObjectName(QStringLiteral("mAdvance"));
    LabelAdvance = new QLabel(tr("Advancement:"), this);
    LabelAdvance->setObjectName(QStringLiteral("LabelAdvance"));
    LabelAdvance->setBuddy(mAdvance);
    LabelHD = new QLabel(tr("HD"), this);
    LabelHD->setObjectName(QStringLiteral("LabelHD"));
    mBlock = new QTextBrowser(this);
    mBlock->setObjectName(QStringLiteral("mBlock"));
    mMainTabs = new QTabWidget(this);
    mMainTabs->setObjectName(QStringLiteral("mMainTabs"));
    mMainTabs->addTab(mList, tr("Monsters"));
    mMainTabs->addTab(mBlock, tr("Stat Block"));
    mJumpButton = new QPushButton(tr("&Jump to Monster Editor"), this);
    mJumpButton->setObjectName(QStringLiteral("mJumpButton"));
    mCloseButton = new QPushButton(tr("&Close"), this);
    mCloseButton->setObjectName(QStringLiteral("mCloseButton"));

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(LabelAdvance);
    buttons->addWidget(mAdvance);
    buttons->addWidget(LabelHD);
    buttons->addStretch(1);
    buttons->addWidget(mJumpButton);
    buttons->addWidget(mCloseButton);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(mMainTabs, 1);
    layout->addLayout(buttons);
    resize(560, 520);

    connect(mList, &QTreeWidget::itemSelectionChanged, this, &D_UIMonsterGenFrame::itemSelected);
    connect(mList, &QTreeWidget::itemActivated, this, &D_UIMonsterGenFrame::Jump);
    connect(mMainTabs, &QTabWidget::currentChanged, this, &D_UIMonsterGenFrame::tabSelected);
    connect(mJumpButton, &QPushButton::clicked, this, &D_UIMonsterGenFrame::Jump);
    connect(mCloseButton, &QPushButton::clicked, this, &QWidget::close);
}

void D_UIMonsterGenFrame::FillList() {
    mList->clear();
    mList->setRootIsDecorated(true);
    mList->setSortingEnabled(false);
    const auto group = [this](const QString& text) -> QTreeWidgetItem* {
        for (int i = 0; i < mList->topLevelItemCount(); ++i) {
            QTreeWidgetItem* item = mList->topLevelItem(i);
            if (item->childCount() > 0 && item->text(0) == text)
                return item;
        }
        return nullptr;
    };
    for (const auto& entry : DObjectManager::GetRaceFileSet()) {
        const FCRef<DRace> race = raceHeader(entry.Get());
        // Player races are characters' stock, not monsters.
        if (!race || race->GetRaceCategoryId() == kPlayerRaceCategory)
            continue;
        const QString name = entry->GetBaseFileName();
        D_UIMonsterRaceItem* item = nullptr;
        if (const qsizetype comma = name.indexOf(','); comma > 0) {
            const QString groupName = name.left(comma);
            QTreeWidgetItem* parent = group(groupName);
            // A group row keeps no file; a plain row of the same name without entries stays
            // beside it.
            if (!parent)
                parent = new D_UIMonsterRaceItem(mList, {groupName});
            item = new D_UIMonsterRaceItem(parent, {name.mid(comma + 1).trimmed()});
        } else if (QTreeWidgetItem* parent = group(name)) {
            item = new D_UIMonsterRaceItem(parent, {name});
        } else {
            item = new D_UIMonsterRaceItem(mList, {name});
        }
        item->SetFileObject(entry.Get());
        item->setToolTip(D_UIMonsterRaceItem::kColumnName, name);
        const DClassInfo* type = DDatabase::GetClassInfoA(race->GetClassGuid());
        item->setText(D_UIMonsterRaceItem::kColumnType, type ? QString(type->mName) : QString());
        item->SetHitDice(race->GetHitDieCount());
    }
    mList->setSortingEnabled(true);
}

DFileObject* D_UIMonsterGenFrame::SelectedRace() const {
    const auto* item = dynamic_cast<const D_UIMonsterRaceItem*>(mList->currentItem());
    return item ? item->GetFileObject() : nullptr;
}

bool D_UIMonsterGenFrame::SelectMonster(const QString& name) {
    for (QTreeWidgetItemIterator it(mList); *it; ++it) {
        const auto* item = dynamic_cast<const D_UIMonsterRaceItem*>(*it);
        if (item && item->GetFileObject() &&
            QString(item->GetFileObject()->GetBaseFileName()).compare(name, Qt::CaseInsensitive) ==
                0) {
            mList->setCurrentItem(*it);
            return true;
        }
    }
    return false;
}

void D_UIMonsterGenFrame::ShowAdvancement(bool shown) {
    mAdvance->setVisible(shown);
    LabelAdvance->setVisible(shown);
    LabelHD->setVisible(shown);
}

void D_UIMonsterGenFrame::itemSelected() {
    const FCRef<DRace> race = raceHeader(SelectedRace());
    mMainTabs->setTabEnabled(1, race != nullptr);
    mJumpButton->setEnabled(race != nullptr);
    if (!race || race->GetMaxHitDieCount() == 0.0f) {
        ShowAdvancement(false);
        return;
    }
    const int own = int(race->GetHitDieCount());
    mAdvance->setRange(own, std::max(own, int(race->GetMaxHitDieCount())));
    mAdvance->setValue(own);
    ShowAdvancement(true);
}

void D_UIMonsterGenFrame::ShowStatBlockTab() {
    mMainTabs->setCurrentIndex(1);
}

void D_UIMonsterGenFrame::tabSelected(int index) {
    if (index != 0)
        UpdateStatblock();
}

void D_UIMonsterGenFrame::UpdateStatblock() {
    const D_UIWaitCursor wait;
    DFileObject* race = SelectedRace();
    if (!race) {
        mBlock->clear();
        return;
    }
    QString error;
    // The advancement is read now: changing it later shows when the tab is entered again.
    const FCRef<DCharacter> monster(DCharacterGenerator::GenerateMonster(
        race, mAdvance->isHidden() ? 0 : mAdvance->value(), error));
    mBlock->setHtml(D_UIUtil::StatBlockHtml(monster.get(), error));
}

void D_UIMonsterGenFrame::Jump() {
    DFileObject* race = SelectedRace();
    if (!race)
        return;
    const D_UIWaitCursor wait;
    QString error;
    const FCRef<DCharacter> monster(DCharacterGenerator::GenerateMonster(
        race, mAdvance->isHidden() ? 0 : mAdvance->value(), error));
    if (monster)
        emit monsterBuilt(monster.get(), tr("Generated Monster"));
}
