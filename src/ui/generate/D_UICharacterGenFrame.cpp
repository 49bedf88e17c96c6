#include "D_UICharacterGenFrame.h"

#include "DCharacter.h"
#include "DCharacterGenerator.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DDieRoller.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DObjectManager.h"
#include "DRace.h"
#include "DRulesQuery.h"
#include "DTable.h"
#include "DTableRoller.h"
#include "D_UIUtil.h"
#include "D_UIWaitCursor.h"
#include "FCFileManager.h"
#include "ResultSet.h"
#include "TableResultBuilder.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int kPlayerClassType = 1;
constexpr int kMaxLevel = 20;
constexpr int kMaxAlignmentId = 0xFFFF;
constexpr int kMaxTableDepth = 32;

QUuid findClass(const QString& name) {
    for (const auto& [guid, info] : DDatabase::GetClassInfoMap()) {
        if (QString(static_cast<const DClassInfo*>(info)->mName)
                .compare(name, Qt::CaseInsensitive) == 0)
            return guid;
    }
    return QUuid();
}

int findAlignment(const QString& name) {
    int id = -1;
    DDatabase::ForEachRow(QString::asprintf("SELECT Id, Name FROM %s",
                                            DRulesQuery::Table(kTableAlignment).constData()),
                          [&](odbc::ResultSet* row) {
                              if (id < 0 && row->getString(2) == name)
                                  id = row->getInt(1);
                          });
    return id;
}

// The first ready character file of this race, class and level, the user's, or the human one.
QString readyCharacterFile(const QString& race, const QString& className, int level) {
    const QString levelText = DHandBook::BuildLevelString(level);
    const QStringList names{QStringLiteral("%1, %2, %3 Level.chr").arg(race, className, levelText),
                            QStringLiteral("%1, %2, %3 Level.chr").arg(race, className, levelText),
                            QStringLiteral("Human, %1, %2 Level.chr").arg(className, levelText)};
    const DFileObjectType trees[] = {kFileCore, kFileUser, kFileCore};
    for (int i = 0; i < 3; ++i) {
        const FCRef<DFileObject> file(
            DObjectManager::CreateFileObject(kObjectCharacter, trees[i], FCString(names[i])));
        if (file && FCFileManager::FileExists(file->GetAccessFilePath()))
            return file->GetAccessFilePath();
    }
    return QString();
}

// A ready character grown to the level in its last class and given the race.
FCRef<DCharacter> fromReadyFile(const QString& path, int level, DFileObject* race) {
    FCRef<DCharacter> character(DCharacter::CreateFromFile(FCString(path), false, nullptr));
    if (!character)
        return nullptr;
    const int have = character->GetHistoryCharacterLevel();
    level = std::min(level, kMaxLevel - have);
    const QUuid lastClass = character->GetLastHistoryClassGuid();
    for (int i = have; !lastClass.isNull() && i < level; ++i) {
        if (!DHandBook::AddCharacterLevel(character.get(), lastClass, false))
            break;
    }
    if (race)
        DHandBook::ChangeCharacterRace(character.get(), race);
    return character;
}

} // namespace

D_UICharacterGenFrame::D_UICharacterGenFrame(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("D_UICharacterGenFrame"));
    setWindowTitle(tr("Character Generator"));
    const auto named = [](QWidget* widget, const char* name) {
        widget->setObjectName(QLatin1String(name));
        return widget;
    };
    mClassCombo = new QComboBox(this);
    mRaceCombo = new QComboBox(this);
    mAlignmentCombo = new QComboBox(this);
    mLevel = new QSpinBox(this);
    mLevel->setRange(1, kMaxLevel);
    mRandomClass = new QCheckBox(tr("Random"), this);
    mRandomRace = new QCheckBox(tr("Random"), this);
    mRandomAlignment = new QCheckBox(tr("Random"), this);
    mAppendBox = new QCheckBox(tr("&Append"), this);
    mGenerateButton = new QPushButton(tr("&Generate"), this);
    mJumpButton = new QPushButton(tr("&Jump to Character Editor"), this);
    mJumpButton->setEnabled(false);
    mCloseButton = new QPushButton(tr("&Close"), this);
    mList = new QTreeWidget(this);
    mList->setHeaderLabels({tr("Race"), tr("Class"), tr("Alignment"), tr("Level"), tr("Number")});
    mList->setRootIsDecorated(false);
    mList->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    mBlock = new QTextBrowser(this);
    mMainTabs = new QTabWidget(this);
    mMainTabs->addTab(mList, tr("Characters"));
    mMainTabs->addTab(mBlock, tr("Stat Block"));
    named(mClassCombo, "mClassCombo");
    named(mRaceCombo, "mRaceCombo");
    named(mAlignmentCombo, "mAlignmentCombo");
    named(mLevel, "mLevel");
    named(mRandomClass, "mRandomClass");
    named(mRandomRace, "mRandomRace");
    named(mRandomAlignment, "mRandomAlignment");
    named(mAppendBox, "mAppendBox");
    named(mGenerateButton, "mGenerateButton");
    named(mJumpButton, "mJumpButton");
    named(mCloseButton, "mCloseButton");
    named(mList, "mList");
    named(mBlock, "mBlock");
    named(mMainTabs, "mMainTabs");

    auto* fields = new QFormLayout;
    const auto row = [](QWidget* combo, QWidget* random) {
        auto* line = new QHBoxLayout;
        line->addWidget(combo, 1);
        line->addWidget(random);
        return line;
    };
    fields->addRow(tr("Race:"), row(mRaceCombo, mRandomRace));
    fields->addRow(tr("Class:"), row(mClassCombo, mRandomClass));
    fields->addRow(tr("Alignment:"), row(mAlignmentCombo, mRandomAlignment));
    fields->addRow(tr("Level:"), mLevel);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(mGenerateButton);
    buttons->addWidget(mAppendBox);
    buttons->addStretch(1);
    buttons->addWidget(mJumpButton);
    buttons->addWidget(mCloseButton);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addWidget(mMainTabs, 1);
    layout->addLayout(buttons);
    resize(640, 480);

    connect(mGenerateButton, &QPushButton::clicked, this,
            qOverload<>(&D_UICharacterGenFrame::Generate));
    connect(mJumpButton, &QPushButton::clicked, this, &D_UICharacterGenFrame::Jump);
    connect(mCloseButton, &QPushButton::clicked, this, &QWidget::close);
    connect(mList, &QTreeWidget::itemSelectionChanged, this, &D_UICharacterGenFrame::itemSelected);
    connect(mList, &QTreeWidget::itemActivated, this, &D_UICharacterGenFrame::Jump);
    connect(mMainTabs, &QTabWidget::currentChanged, this, &D_UICharacterGenFrame::tabSelected);
    connect(mRandomClass, &QCheckBox::toggled, this, &D_UICharacterGenFrame::randomClassCheck);
    connect(mRandomRace, &QCheckBox::toggled, this, &D_UICharacterGenFrame::randomRaceCheck);
    connect(mRandomAlignment, &QCheckBox::toggled, this,
            &D_UICharacterGenFrame::randomAlignmentCheck);
    FillFields();
}

void D_UICharacterGenFrame::FillFields() {
    D_UIUtil::FillComboWithClasses(mClassCombo, kPlayerClassType);
    // A private header read of each race: the catalogue's entries stay unloaded.
    for (const auto& entry : DObjectManager::GetRaceFileSet()) {
        const FCRef<DRace> race(DRace::CreateFromFile(entry->GetAccessFilePath(), true));
        if (race)
            mRaceCombo->addItem(entry->GetBaseFileName());
    }
    mRaceCombo->setCurrentIndex(std::max(0, mRaceCombo->findText(QStringLiteral("Human"))));
    D_UIUtil::FillComboWithTable(mAlignmentCombo, kTableAlignment, 1, kMaxAlignmentId,
                                 QStringLiteral("Id"), QStringLiteral("SortNum"));
}

QString D_UICharacterGenFrame::AlignmentGroup(const QString& alignment) {
    if (alignment.contains(QLatin1String("Good")))
        return QStringLiteral("Good");
    if (alignment.contains(QLatin1String("Evil")))
        return QStringLiteral("Evil");
    return QStringLiteral("Neutral");
}

QString D_UICharacterGenFrame::Generate(const DTable* table, int depth) {
    if (!table || depth > kMaxTableDepth)
        return QString();
    const int roll = DDieRoller::RollDiceSum(table->Die(), unsigned(std::max(0, table->Count()))) +
                     table->Modifier();
    // Unlike the table window, the first covering row alone decides.
    for (const DTableItem* row : table->GetItemArray()) {
        if (!row->Matches(roll))
            continue;
        if (row->Generate() != DTableItem::kElementTable)
            return row->GenerateString();
        const FCString path = DTableRoller::FindObjectFile(row->GenerateFile());
        const FCRef<DTable> nested(path.isEmpty() ? nullptr : DTable::CreateFromFile(path));
        return Generate(nested.get(), depth + 1);
    }
    return QString();
}

QString D_UICharacterGenFrame::Pick(const QString& tableName) {
    const FCRef<DFileObject> file(DObjectManager::CreateFileObject(
        kObjectTable, kFileCore, FCString(tableName + QStringLiteral(".tbl"))));
    const FCString path = file ? DTableRoller::FindObjectFile(*file) : FCString();
    const FCRef<DTable> table(path.isEmpty() ? nullptr : DTable::CreateFromFile(path));
    return Generate(table.get(), 0);
}

QString D_UICharacterGenFrame::FitAlignment(const QString& group, QString alignment,
                                            const QString& className) const {
    // Enough draws that a one-in-three alignment of the group comes up all but surely.
    constexpr int kDraws = 20;
    const int classIndex = D_UIUtil::GetIndexOfItemWithText(mClassCombo, className);
    if (classIndex < 0)
        return alignment;
    const QUuid classGuid = mClassCombo->itemData(classIndex).toUuid();
    const auto allowed = [&](const QString& name) {
        const int index = D_UIUtil::GetIndexOfItemWithText(mAlignmentCombo, name);
        return index >= 0 && DCharacterGenerator::IsAlignmentAllowed(
                                 classGuid, mAlignmentCombo->itemData(index).toInt());
    };
    for (int draw = 0; draw < kDraws && !allowed(alignment); ++draw)
        alignment = Pick(QStringLiteral("Random NPC, Alignment - %1").arg(group));
    return alignment;
}

void D_UICharacterGenFrame::Generate() {
    if (!mAppendBox->isChecked())
        mList->clear();
    QString alignment, group;
    if (mRandomAlignment->isChecked()) {
        group = Pick(QStringLiteral("Random NPC, Alignment"));
        alignment = Pick(QStringLiteral("Random NPC, Alignment - %1").arg(group));
    } else {
        alignment = mAlignmentCombo->currentText();
        group = AlignmentGroup(alignment);
    }
    const QString className = mRandomClass->isChecked()
                                  ? Pick(QStringLiteral("Random NPC, Class - %1").arg(group))
                                  : mClassCombo->currentText();
    if (mRandomAlignment->isChecked())
        alignment = FitAlignment(group, alignment, className);
    const QString race =
        mRandomRace->isChecked()
            ? Pick(QStringLiteral("Random NPC, Race, %1 - %2").arg(group, className))
            : mRaceCombo->currentText();
    const QStringList request{race, className, alignment, QString::number(mLevel->value())};
    QTreeWidgetItem* same = nullptr;
    for (int i = 0; !same && i < mList->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = mList->topLevelItem(i);
        if (item->text(kColumnRace) == request[0] && item->text(kColumnClass) == request[1] &&
            item->text(kColumnAlignment) == request[2] && item->text(kColumnLevel) == request[3])
            same = item;
    }
    if (same)
        same->setText(kColumnNumber, QString::number(same->text(kColumnNumber).toInt() + 1));
    else
        new QTreeWidgetItem(mList, request + QStringList{QStringLiteral("1")});
    itemSelected();
    if (mMainTabs->currentIndex() == 1)
        UpdateStatblock();
}

FCRef<DCharacter> D_UICharacterGenFrame::decodeItem(const QTreeWidgetItem* row,
                                                    QString& error) const {
    if (!row)
        return nullptr;
    const QString raceName = row->text(kColumnRace);
    const QString className = row->text(kColumnClass);
    int level = row->text(kColumnLevel).toInt();
    DFileObject* race = DObjectManager::FindRaceFile(raceName);
    const FCRef<DRace> raceData(race ? DRace::CreateFromFile(race->GetAccessFilePath(), false)
                                     : nullptr);
    // Racial hit dice count toward the twenty levels.
    const float hitDice = raceData ? raceData->GetHitDieCount() : 0.0f;
    if (float(level) + hitDice > float(kMaxLevel))
        level = int(float(kMaxLevel) - hitDice);
    if (level < 1) {
        error = tr("%1 has too many hit dice for a class level").arg(raceName);
        return nullptr;
    }
    const QUuid classGuid = findClass(className);
    const int alignment = findAlignment(row->text(kColumnAlignment));
    FCRef<DCharacter> character;
    if (const QString ready = readyCharacterFile(raceName, className, level); !ready.isEmpty()) {
        character = fromReadyFile(ready, level, race);
    } else if (!classGuid.isNull()) {
        // No ready character files ship: the character is built by the rules instead, with a
        // race the tables could not name taken as human, as the human ready file would be.
        FCRef<DFileObject> human;
        if (!race) {
            human.reset(
                DObjectManager::CreateFileObject(kObjectRace, kFileCore, FCString("Human.rac")));
            race = human.get();
        }
        DCharacterGenerator::Request request;
        request.race = race;
        request.classGuid = classGuid;
        request.level = level;
        request.alignmentId = alignment;
        character.reset(DCharacterGenerator::GenerateCharacter(request, error));
        if (!character)
            return nullptr;
    }
    if (!character) {
        error = tr("no %1 %2 of level %3 can be had").arg(raceName, className).arg(level);
        return nullptr;
    }
    if (alignment > 0)
        TableResultBuilder::ApplyAlignment(*character, alignment);
    DHandBook::CharacterSetup(character.get(), false);
    return character;
}

void D_UICharacterGenFrame::itemSelected() {
    mJumpButton->setEnabled(mList->currentItem() != nullptr);
}

void D_UICharacterGenFrame::Jump() {
    const D_UIWaitCursor wait;
    QString error;
    FCRef<DCharacter> character = decodeItem(mList->currentItem(), error);
    if (character)
        emit characterBuilt(character.get(), tr("Generated Character"));
}

void D_UICharacterGenFrame::randomClassCheck(bool on) {
    mClassCombo->setEnabled(!on);
}

void D_UICharacterGenFrame::randomRaceCheck(bool on) {
    mRaceCombo->setEnabled(!on);
}

void D_UICharacterGenFrame::randomAlignmentCheck(bool on) {
    mAlignmentCombo->setEnabled(!on);
}

void D_UICharacterGenFrame::ShowStatBlockTab() {
    mMainTabs->setCurrentIndex(1);
}

void D_UICharacterGenFrame::tabSelected(int index) {
    if (index == 1)
        UpdateStatblock();
}

void D_UICharacterGenFrame::UpdateStatblock() {
    const D_UIWaitCursor wait;
    QString html;
    for (int i = 0; i < mList->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* row = mList->topLevelItem(i);
        html += QStringLiteral("<h3>%1 &times; %2 %3 %4 (%5)</h3>")
                    .arg(row->text(kColumnNumber), row->text(kColumnRace).toHtmlEscaped(),
                         row->text(kColumnClass).toHtmlEscaped(), row->text(kColumnLevel),
                         row->text(kColumnAlignment).toHtmlEscaped());
        QString error;
        const FCRef<DCharacter> character = decodeItem(row, error);
        html += D_UIUtil::StatBlockHtml(character.get(), error);
    }
    mBlock->setHtml(html.isEmpty() ? tr("<p>Nothing generated yet.</p>") : html);
}
