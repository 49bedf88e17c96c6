#include "DiceGenFrameBase.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

QSpinBox* makeSpinBox(const QString& name, int low, int high, int value, QWidget* parent) {
    auto* spin = new QSpinBox(parent);
    spin->setObjectName(name);
    spin->setRange(low, high);
    spin->setValue(value);
    return spin;
}

} // namespace

DiceGenFrameBase::DiceGenFrameBase(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("DiceGenFrame"));
    setWindowTitle(tr("Dice"));

    auto* rollBox = new QGroupBox(tr("Roll"), this);
    mNumber = makeSpinBox(QStringLiteral("mNumber"), 1, kMaxDieCount, 1, rollBox);
    mDie = new QComboBox(rollBox);
    mDie->setObjectName(QStringLiteral("mDie"));
    mModifier = makeSpinBox(QStringLiteral("mModifier"), -kMaxModifier, kMaxModifier, 0, rollBox);
    mSets = makeSpinBox(QStringLiteral("mSets"), 1, kMaxSets, 1, rollBox);
    mRollButton = new QPushButton(tr("&Roll"), rollBox);
    mRollButton->setObjectName(QStringLiteral("mRollButton"));
    mRollButton->setDefault(true);

    auto* rollLayout = new QGridLayout(rollBox);
    const QString captions[] = {tr("&Number"), tr("&Die"), tr("&Modifier"), tr("&Sets")};
    QWidget* const fields[] = {mNumber, mDie, mModifier, mSets};
    for (int column = 0; column < 4; ++column) {
        auto* label = new QLabel(captions[column], rollBox);
        label->setBuddy(fields[column]);
        rollLayout->addWidget(label, 0, column);
        rollLayout->addWidget(fields[column], 1, column);
    }
    rollLayout->addWidget(mRollButton, 1, 4);

    auto* quickBox = new QGroupBox(tr("Quick"), this);
    auto* quickLayout = new QGridLayout(quickBox);
    for (int id = 1; id <= kQuickButtonCount; ++id) {
        auto* button = new QPushButton(tr("&%1. Quick").arg(id), quickBox);
        button->setObjectName(QStringLiteral("mQuick%1").arg(id));
        quickLayout->addWidget(button, (id - 1) / 3, (id - 1) % 3);
        mQuickButtons[size_t(id)] = button;
    }

    mAppend = new QCheckBox(tr("&Append"), this);
    mAppend->setObjectName(QStringLiteral("mAppend"));
    mTabs = new QTabWidget(this);
    mTabs->setObjectName(QStringLiteral("mTabs"));
    mRollList = new QTreeWidget(mTabs);
    mRollList->setObjectName(QStringLiteral("mRollList"));
    mRollList->setColumnCount(1);
    mRollList->setHeaderLabels({tr("Rolls")});
    // Children stay in the order they were rolled.
    mRollList->setSortingEnabled(false);

    mStatBlock = new QPlainTextEdit(mTabs);
    mStatBlock->setObjectName(QStringLiteral("mStatBlock"));
    mStatBlock->setReadOnly(true);
    mTabs->addTab(mRollList, tr("Rolls"));
    mTabs->addTab(mStatBlock, tr("Stat Block"));

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(rollBox);
    layout->addWidget(quickBox);
    layout->addWidget(mAppend);
    layout->addWidget(mTabs, 1);
}
