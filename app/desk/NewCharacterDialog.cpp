#include "NewCharacterDialog.h"

#include "DCharacter.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DObjectManager.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

namespace {
// Class types a player picks from: base, NPC and prestige classes, not creature types.
bool isPlayerClass(int classType) {
    return classType == 1 || classType == 3 || classType == 4;
}
} // namespace

NewCharacterDialog::NewCharacterDialog(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("New Character"));
    mName = new QLineEdit(tr("New Character"), this);
    mRace = new QComboBox(this);
    for (const auto& entry : DObjectManager::GetRaceFileSet())
        mRace->addItem(entry->GetBaseFileName(), QVariant::fromValue<void*>(entry.Get()));
    mRace->setCurrentIndex(qMax(0, mRace->findText(QStringLiteral("Human"))));
    mClass = new QComboBox(this);
    for (const auto& [guid, info] : DDatabase::GetClassInfoMap()) {
        const auto* classInfo = static_cast<const DClassInfo*>(info);
        if (isPlayerClass(classInfo->mClassType))
            mClass->addItem(classInfo->mName, guid);
    }
    mClass->model()->sort(0);
    mClass->setCurrentIndex(qMax(0, mClass->findText(QStringLiteral("Fighter"))));
    mLevel = new QSpinBox(this);
    mLevel->setRange(1, 20);

    auto* form = new QFormLayout(this);
    form->addRow(tr("&Name:"), mName);
    form->addRow(tr("&Race:"), mRace);
    form->addRow(tr("&Class:"), mClass);
    form->addRow(tr("&Levels:"), mLevel);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setEnabled(mRace->count() > 0 && mClass->count() > 0);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

DCharacter* NewCharacterDialog::CreateCharacter() const {
    auto* raceEntry = static_cast<DFileObject*>(mRace->currentData().value<void*>());
    if (!raceEntry)
        return nullptr;
    auto* character = new DCharacter();
    character->SetCharacterName(FCString(mName->text().trimmed()));
    DHandBook::SetupCharacterWithRace(character, raceEntry);
    if (!character->GetRace()) {
        character->Release();
        return nullptr;
    }
    const QUuid classGuid = mClass->currentData().toUuid();
    for (int level = 0; level < mLevel->value(); ++level)
        character->AddHistory(classGuid, 1.0f);
    DHandBook::CharacterSetup(character, true);
    return character;
}
