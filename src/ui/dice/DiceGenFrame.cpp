#include "DiceGenFrame.h"

#include "Connection.h"
#include "DDatabase.h"
#include "DDieRoller.h"
#include "DFailureReporter.h"
#include "DOutput.h"
#include "ResultSet.h"
#include "Statement.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTreeWidget>

#include <exception>
#include <memory>

namespace {

// The modifier part of a label: "+2", "-1", or nothing for 0.
QString modifierText(int modifier) {
    if (modifier == 0)
        return QString();
    return (modifier > 0 ? QStringLiteral("+") : QString()) + QString::number(modifier);
}

} // namespace

DiceGenFrame::DiceGenFrame(QWidget* parent) : DiceGenFrameBase(parent) {
    FillDieCombo();
    LoadQuickButtons();
    connect(mDie, &QComboBox::currentIndexChanged, this, &DiceGenFrame::slotDieCombo);
    connect(mRollButton, &QPushButton::clicked, this, &DiceGenFrame::slotRoll);
    for (int id = 1; id <= kQuickButtonCount; ++id)
        connect(mQuickButtons[size_t(id)], &QPushButton::clicked, this,
                [this, id] { slotQuickButton(id); });
    connect(mTabs, &QTabWidget::currentChanged, this, &DiceGenFrame::slotTabSelected);
    slotDieCombo(mDie->currentIndex());
}

void DiceGenFrame::slotTabSelected(int index) {
    if (index != 0)
        UpdateStatblock();
}

void DiceGenFrame::UpdateStatblock() {
    QList<DRollXml::RollList> lists;
    for (int i = 0; i < mRollList->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* top = mRollList->topLevelItem(i);
        DRollXml::RollList list{top->text(0), {}};
        for (int c = 0; c < top->childCount(); ++c)
            list.rolls << top->child(c)->text(0);
        lists << list;
    }
    const QString block = DOutput::WorkingFolder(QStringLiteral("Roll")) + "/block.txt";
    QFile::remove(block);
    QString error;
    DOutput::BuildRollStatBlock(lists, error);
    QFile file(block);
    // Without a block the tab keeps what it showed.
    if (!file.open(QIODevice::ReadOnly))
        return;
    // Read as the block was always shown: pieces of at most 128 characters, one a line.
    QStringList lines;
    while (!file.atEnd())
        lines << QString::fromUtf8(file.readLine(129)).remove('\n').remove('\t');
    mStatBlock->setPlainText(lines.join('\n').trimmed());
}

QString DiceGenFrame::BuildQuickCaption(int id, int count, int die, int modifier) {
    QString caption = QStringLiteral("&%1. Quick ").arg(id);
    if (count > 1)
        caption += QString::number(count);
    return caption + QStringLiteral("d%1").arg(die) + modifierText(modifier);
}

QString DiceGenFrame::BuildRollLabel(int count, int die, int modifier) {
    return QStringLiteral("%1d%2").arg(count).arg(die) + modifierText(modifier);
}

void DiceGenFrame::FillDieCombo() {
    const QString sql = QStringLiteral("SELECT Id, Name FROM %1 WHERE (Id>=2) AND (Id<=9999) "
                                       "ORDER BY Id")
                            .arg(DDatabase::GetTableName(kTableDice));
    DDatabase::ForEachRow(sql, [this](odbc::ResultSet* row) {
        mDie->addItem(row->getString(QStringLiteral("Name")), row->getInt(QStringLiteral("Id")));
    });
}

void DiceGenFrame::LoadQuickButtons() {
    const QString sql = QStringLiteral("SELECT Id, DieCount, DieId, Modifier FROM %1 WHERE "
                                       "(Id>=1) AND (Id<=9)")
                            .arg(DDatabase::GetTableName(kTableDieQuickButtons));
    DDatabase::ForEachRow(sql, [this](odbc::ResultSet* row) {
        const int id = row->getInt(QStringLiteral("Id"));
        if (id < 1 || id > kQuickButtonCount)
            return;
        const size_t slot = size_t(id);
        mQuickDieCount[slot] = row->getInt(QStringLiteral("DieCount"));
        mQuickDieId[slot] = row->getInt(QStringLiteral("DieId"));
        mQuickModifier[slot] = row->getInt(QStringLiteral("Modifier"));
        mQuickButtons[slot]->setText(
            BuildQuickCaption(id, mQuickDieCount[slot], mQuickDieId[slot], mQuickModifier[slot]));
    });
}

void DiceGenFrame::slotDieCombo(int index) {
    if (index < 0)
        return;
    // One die plus the modifier can then not fall below 1 by the field's limits alone.
    mModifier->setMinimum(1 - mDie->itemData(index).toInt());
}

void DiceGenFrame::slotRoll() {
    DieRoll(mNumber->value(), mDie->currentData().toInt(), mModifier->value(), mSets->value());
}

void DiceGenFrame::slotQuickButton(int id) {
    if (id < 1 || id > kQuickButtonCount)
        return;
    const size_t slot = size_t(id);
    DieRoll(mQuickDieCount[slot], mQuickDieId[slot], mQuickModifier[slot], 1);
}

void DiceGenFrame::DieRoll(int count, int die, int modifier, int sets) {
    const QString label = BuildRollLabel(count, die, modifier);
    QTreeWidgetItem* item = nullptr;
    if (!mAppend->isChecked()) {
        mRollList->clear();
    } else {
        for (int i = 0; i < mRollList->topLevelItemCount() && !item; ++i) {
            if (mRollList->topLevelItem(i)->text(0) == label)
                item = mRollList->topLevelItem(i);
        }
    }
    if (!item)
        item = new QTreeWidgetItem(mRollList, QStringList{label});
    int order = item->childCount();
    const unsigned dice = count > 0 ? unsigned(count) : 0u;
    for (int set = 0; set < sets; ++set) {
        const qint64 result = qint64(DDieRoller::RollDiceSum(die, dice)) + modifier;
        auto* child = new QTreeWidgetItem(item, QStringList{QString::number(result)});
        child->setData(0, kOrderRole, order++);
    }
    item->setExpanded(true);
}
