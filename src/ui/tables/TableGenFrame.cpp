#include "TableGenFrame.h"

#include "DCharacter.h"
#include "DObjectManager.h"
#include "DTable.h"
#include "DTableRoller.h"
#include "DTreasure.h"
#include "D_UIFileObjectItem.h"
#include "D_UIUtil.h"
#include "D_UIWaitCursor.h"
#include "SortListItem.h"
#include "TableResultBuilder.h"

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int kFileRole = Qt::UserRole + 1;
constexpr int kKindRole = Qt::UserRole + 2;
constexpr int kResultRole = Qt::UserRole + 3;

QString jumpText(int kind) {
    switch (kind) {
    case DTableItem::kElementMonster:
        return QObject::tr("&Jump to Monster Editor");
    case DTableItem::kElementCharacter:
        return QObject::tr("&Jump to Character Editor");
    case DTableItem::kElementTreasure:
        return QObject::tr("&Jump to Treasure Editor");
    default:
        return QString();
    }
}

QString headingOf(const DTableResult& result) {
    if (!result.problem.isEmpty() && result.kind == DTableItem::kElementTable)
        return QObject::tr("Not Rolled");
    switch (result.kind) {
    case DTableItem::kElementMonster:
        return QObject::tr("Monster");
    case DTableItem::kElementCharacter:
        return QObject::tr("Character");
    case DTableItem::kElementTreasure:
        return QObject::tr("Treasure");
    case DTableItem::kElementText:
        return QObject::tr("Text");
    default:
        return QObject::tr("Not Rolled");
    }
}

QString extraOf(const DTableResult& result) {
    if (result.problem.isEmpty())
        return result.extra;
    return result.extra.isEmpty() ? result.problem : result.extra + "; " + result.problem;
}

} // namespace

TableGenFrame::TableGenFrame(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("TableGenFrame"));
    setWindowTitle(tr("Table Generator"));
    mList = new QTreeWidget(this);
    mList->setObjectName(QStringLiteral("mList"));
    mList->setHeaderLabels({tr("Name"), tr("Roll")});
    mList->setRootIsDecorated(true);
    mList->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    mGenerateList = new QTreeWidget(this);
    mGenerateList->setObjectName(QStringLiteral("mGenerateList"));
    mGenerateList->setHeaderLabels({tr("Name"), tr("Number"), tr("Extra")});
    mGenerateList->setSortingEnabled(true);
    mGenerateList->sortByColumn(kColumnName, Qt::AscendingOrder);
    mGenerateList->header()->setSectionResizeMode(kColumnName, QHeaderView::Stretch);
    mGenerateButton = new QPushButton(tr("&Generate"), this);
    mGenerateButton->setObjectName(QStringLiteral("mGenerateButton"));
    mGenerateButton->setEnabled(false);
    mAppendBox = new QCheckBox(tr("&Append"), this);
    mAppendBox->setObjectName(QStringLiteral("mAppendBox"));
    mCloseButton = new QPushButton(tr("&Close"), this);
    mCloseButton->setObjectName(QStringLiteral("mCloseButton"));
    mRollLabel = new QLabel(this);
    mRollLabel->setObjectName(QStringLiteral("mRollLabel"));

    mBlock = new QTextBrowser(this);
    mBlock->setObjectName(QStringLiteral("mBlock"));
    mMainTabs = new QTabWidget(this);
    mMainTabs->setObjectName(QStringLiteral("mMainTabs"));
    mMainTabs->addTab(mGenerateList, tr("Generate"));
    mMainTabs->addTab(mBlock, tr("Stat Block"));
    mJumpButton = new QPushButton(this);
    mJumpButton->setObjectName(QStringLiteral("mJumpButton"));
    mJumpButton->hide();

    auto* splitter = new QSplitter(this);
    splitter->addWidget(mList);
    splitter->addWidget(mMainTabs);
    splitter->setSizes({340, 420});
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(mGenerateButton);
    buttons->addWidget(mAppendBox);
    buttons->addWidget(mRollLabel, 1);
    buttons->addWidget(mJumpButton);
    buttons->addWidget(mCloseButton);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(splitter, 1);
    layout->addLayout(buttons);
    resize(760, 440);

    connect(mList, &QTreeWidget::itemSelectionChanged, this, &TableGenFrame::tableSelected);
    connect(mList, &QTreeWidget::itemActivated, this, &TableGenFrame::Generate);
    connect(mGenerateButton, &QPushButton::clicked, this, &TableGenFrame::Generate);
    connect(mCloseButton, &QPushButton::clicked, this, &QWidget::close);
    connect(mGenerateList, &QTreeWidget::itemSelectionChanged, this, &TableGenFrame::itemSelected);
    connect(mGenerateList, &QTreeWidget::itemActivated, this, &TableGenFrame::Jump);
    connect(mJumpButton, &QPushButton::clicked, this, &TableGenFrame::Jump);
    connect(mMainTabs, &QTabWidget::currentChanged, this, &TableGenFrame::tabSelected);
    FillList();
}

void TableGenFrame::FillList() {
    mList->clear();
    for (const auto& entry : DObjectManager::GetTableSet()) {
        FCRef<DTable> table(DTable::CreateFromFile(entry->GetAccessFilePath()));
        const QString name = entry->GetBaseFileName();
        // "Group, Leaf" lies under its group.
        QTreeWidgetItem* parent = nullptr;
        QString text = name;
        if (const qsizetype comma = name.indexOf(','); comma > 0) {
            const QString group = name.left(comma);
            text = name.mid(comma + 1).trimmed();
            const auto found = mList->findItems(group, Qt::MatchExactly);
            parent = found.isEmpty() ? new QTreeWidgetItem(mList, {group}) : found.first();
            parent->setExpanded(true);
        }
        auto* item =
            parent ? new D_UIFileObjectItem(parent, {text}) : new D_UIFileObjectItem(mList, {text});
        item->SetFileObject(entry.Get());
        item->setText(1, table ? table->DieText() : tr("unreadable"));
        item->setData(0, kFileRole, QString(entry->GetAccessFilePath()));
        item->setData(0, Qt::ToolTipRole, name);
    }
}

bool TableGenFrame::SelectTable(const QString& name) {
    for (QTreeWidgetItemIterator it(mList); *it; ++it) {
        if ((*it)->data(0, Qt::ToolTipRole).toString().compare(name, Qt::CaseInsensitive) == 0) {
            mList->setCurrentItem(*it);
            return true;
        }
    }
    return false;
}

void TableGenFrame::tableSelected() {
    const QTreeWidgetItem* item = mList->currentItem();
    mGenerateButton->setEnabled(item && item->childCount() == 0 &&
                                !item->data(0, kFileRole).toString().isEmpty());
}

void TableGenFrame::Generate() {
    const QTreeWidgetItem* item = mList->currentItem();
    if (!item || item->data(0, kFileRole).toString().isEmpty())
        return;
    if (!mAppendBox->isChecked()) {
        mGenerateList->clear();
        mResults.clear();
    }
    FCRef<DTable> table(DTable::CreateFromFile(FCString(item->data(0, kFileRole).toString())));
    if (!table) {
        mRollLabel->setText(tr("The table file cannot be read."));
        return;
    }
    const DTableRoller::Outcome outcome = DTableRoller().Roll(*table);
    mRollLabel->setText(tr("%1 rolled %2").arg(table->DieText()).arg(outcome.roll));
    Gather(outcome.results);
    itemSelected();
    if (mMainTabs->currentIndex() == 1)
        UpdateStatblock();
}

void TableGenFrame::Gather(const std::vector<DTableResult>& results) {
    for (const DTableResult& result : results) {
        if (result.kind != DTableItem::kElementTable || !result.problem.isEmpty())
            GeneratedItem(result);
        Gather(result.children);
    }
}

QTreeWidgetItem* TableGenFrame::Heading(const QString& text) {
    for (int i = 0; i < mGenerateList->topLevelItemCount(); ++i) {
        if (mGenerateList->topLevelItem(i)->text(kColumnName) == text)
            return mGenerateList->topLevelItem(i);
    }
    auto* heading = new SortListItem(mGenerateList, {text});
    heading->setExpanded(true);
    return heading;
}

void TableGenFrame::GeneratedItem(const DTableResult& result) {
    QTreeWidgetItem* heading = Heading(headingOf(result));
    const QString extra = extraOf(result);
    // The same result with the same overrides is counted in one row.
    for (int i = 0; i < heading->childCount(); ++i) {
        QTreeWidgetItem* child = heading->child(i);
        if (child->text(kColumnName) == result.name && child->text(kColumnExtra) == extra &&
            child->data(0, kKindRole).toInt() == result.kind) {
            const int count = child->text(kColumnNumber).toInt() + result.count;
            static_cast<SortListItem*>(child)->setText(kColumnNumber, QString::number(count),
                                                       count);
            return;
        }
    }
    auto* child = new SortListItem(heading, {result.name, QString(), extra});
    child->setText(kColumnNumber, QString::number(result.count), result.count);
    child->setData(0, kKindRole, result.kind);
    DTableResult kept = result;
    kept.children.clear();
    mResults.push_back(std::move(kept));
    child->setData(0, kResultRole, int(mResults.size() - 1));
}

const DTableResult* TableGenFrame::ResultOf(const QTreeWidgetItem* item) const {
    if (!item || !item->data(0, kResultRole).isValid())
        return nullptr;
    const int index = item->data(0, kResultRole).toInt();
    return index >= 0 && size_t(index) < mResults.size() ? &mResults[size_t(index)] : nullptr;
}

bool TableGenFrame::SelectResult(const QString& name) {
    for (QTreeWidgetItemIterator it(mGenerateList); *it; ++it) {
        if (ResultOf(*it) && (*it)->text(kColumnName).compare(name, Qt::CaseInsensitive) == 0) {
            mGenerateList->setCurrentItem(*it);
            return true;
        }
    }
    return false;
}

void TableGenFrame::itemSelected() {
    mJumpButton->hide();
    const DTableResult* result = ResultOf(mGenerateList->currentItem());
    // Text rows and rows whose object is missing have nothing to open.
    if (!result || !result->problem.isEmpty())
        return;
    const QString text = jumpText(result->kind);
    if (text.isEmpty())
        return;
    mJumpButton->setText(text);
    mJumpButton->show();
}

void TableGenFrame::Jump() {
    const DTableResult* result = ResultOf(mGenerateList->currentItem());
    if (!result || !result->problem.isEmpty() || jumpText(result->kind).isEmpty())
        return;
    const D_UIWaitCursor wait;
    QString error;
    if (result->kind == DTableItem::kElementTreasure) {
        FCRef<DTreasure> treasure = TableResultBuilder::BuildTreasure(*result, error);
        if (treasure) {
            emit treasureBuilt(treasure.get(), TableResultBuilder::Title(*result));
            return;
        }
    } else {
        FCRef<DCharacter> character = TableResultBuilder::BuildCreature(*result, error);
        if (character) {
            emit creatureBuilt(character.get(), TableResultBuilder::Title(*result));
            return;
        }
    }
    mRollLabel->setText(error);
}

void TableGenFrame::ShowStatBlockTab() {
    mMainTabs->setCurrentIndex(1);
}

void TableGenFrame::tabSelected(int index) {
    if (index == 1)
        UpdateStatblock();
}

void TableGenFrame::UpdateStatblock() {
    const D_UIWaitCursor wait;
    QString html;
    // Built anew at every showing: a treasure row gives a new hoard each time.
    for (QTreeWidgetItemIterator it(mGenerateList); *it; ++it) {
        const DTableResult* result = ResultOf(*it);
        if (!result)
            continue;
        const QString heading =
            QStringLiteral("<h3>%1 &times; %2</h3>")
                .arg((*it)->text(kColumnNumber), (*it)->text(kColumnName).toHtmlEscaped());
        QString body, error;
        if (!result->problem.isEmpty()) {
            error = result->problem;
        } else if (result->kind == DTableItem::kElementText) {
            body.clear();
        } else if (result->kind == DTableItem::kElementTreasure) {
            if (FCRef<DTreasure> treasure = TableResultBuilder::BuildTreasure(*result, error))
                body = QStringLiteral("<p>%1</p>").arg(TableResultBuilder::TreasureHtml(*treasure));
        } else {
            const FCRef<DCharacter> creature = TableResultBuilder::BuildCreature(*result, error);
            body = D_UIUtil::StatBlockHtml(creature.get(), error);
        }
        if (!error.isEmpty())
            body = QStringLiteral("<p><i>%1</i></p>").arg(error.toHtmlEscaped());
        html += heading + body;
    }
    mBlock->setHtml(html.isEmpty() ? tr("<p>Nothing rolled yet.</p>") : html);
}
