#include "DTable.h"

#include "FCArchive.h"
#include "FCFileManager.h"

#include <QFileInfo>

FC_IMPLEMENT_CLASS(DTable, "FCObject", nullptr)

namespace {

// Files written elsewhere may use either separator.
FCString baseNameOf(const QString& path) {
    QString portable = path;
    portable.replace('\\', '/');
    return FCString(QFileInfo(portable).completeBaseName());
}

} // namespace

DTable::DTable() {
    mItems.SetOwnership(kFCRetained);
}

DTable::DTable(const DTable& other)
    : FCObject(other), mCount(other.mCount), mDie(other.mDie), mModifier(other.mModifier),
      mNotes(other.mNotes), mName(other.mName) {
    mItems.CloneFrom(other.mItems);
}

DTable& DTable::operator=(const DTable& other) {
    if (this == &other)
        return *this;
    mItems.CloneFrom(other.mItems);
    mCount = other.mCount;
    mDie = other.mDie;
    mModifier = other.mModifier;
    mNotes = other.mNotes;
    mName = other.mName;
    return *this;
}

bool DTable::operator==(const DTable& other) const {
    if (mCount != other.mCount || mDie != other.mDie || mModifier != other.mModifier ||
        mNotes != other.mNotes || mItems.GetCount() != other.mItems.GetCount())
        return false;
    for (int i = 0; i < mItems.GetCount(); ++i) {
        if (!(*mItems.At(i) == *other.mItems.At(i)))
            return false;
    }
    return true;
}

DTable* DTable::CreateFromFile(const FCString& path) {
    const FCString resolved = FCFileManager::ResolvePath(path);
    auto* table = static_cast<DTable*>(
        FCArchive::ReadFile(resolved, kFileSignature, false, nullptr, GetStaticClassInfo()));
    if (table)
        table->mName = baseNameOf(resolved);
    return table;
}

bool DTable::SaveToFile(const FCString& path) {
    const FCString resolved = FCFileManager::ResolvePath(path);
    if (!FCArchive::WriteFile(resolved, kFileSignature, kFileVersion, this))
        return false;
    mName = baseNameOf(resolved);
    return true;
}

QString DTable::DieText() const {
    QString text = QStringLiteral("%1d%2").arg(mCount).arg(mDie);
    if (mModifier != 0)
        text += FCString::numberWithSign(mModifier);
    return text;
}

void DTable::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    mItems.Serialize(archive);
    archive.Transfer(mCount);
    archive.Transfer(mDie);
    archive.Transfer(mModifier);
    archive.Transfer(mNotes);
}
