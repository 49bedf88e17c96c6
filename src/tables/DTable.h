#pragma once

#include "DTableItem.h"
#include "FCObject.h"
#include "FCPointerArray.h"
#include "FCString.h"

// A user-editable random table in its own file: one die expression and rows that say what a
// roll gives.
class DTable : public FCObject {
    FC_DECLARE_CLASS(DTable)
public:
    static constexpr quint32 kFileSignature = 0x09090909;
    static constexpr quint32 kFileVersion = 0x10001;

    DTable();
    DTable(const DTable& other);
    DTable& operator=(const DTable& other);
    ~DTable() override = default;

    FCObject* Clone() const override { return new DTable(*this); }
    void Serialize(FCArchive& archive) override;
    // Same die, notes and rows; the name is the file's, so it is left out.
    bool operator==(const DTable& other) const;

    // Null if the file cannot be read or is not a table. The name is the file's base name.
    static DTable* CreateFromFile(const FCString& path);
    bool SaveToFile(const FCString& path);

    // Appends and takes a reference.
    void AddItem(DTableItem* item) { mItems.Add(item); }
    // A row that is not in the table is left alone.
    void RemoveItem(DTableItem* item) { mItems.Remove(item); }
    void RemoveAllItems() { mItems.RemoveAll(); }
    const FCPointerArray<DTableItem>& GetItemArray() const { return mItems; }

    int Count() const { return mCount; }
    void setCount(int count) { mCount = count; }
    int Die() const { return mDie; }
    void setDie(int die) { mDie = die; }
    int Modifier() const { return mModifier; }
    void setModifier(int modifier) { mModifier = modifier; }
    const FCString& Notes() const { return mNotes; }
    void setNotes(const FCString& notes) { mNotes = notes; }
    const FCString& Name() const { return mName; }
    void setName(const FCString& name) { mName = name; }

    // "1d1", "2d6+1", "1d20-2".
    QString DieText() const;

private:
    FCPointerArray<DTableItem> mItems;
    int mCount = 1;
    int mDie = 1;
    int mModifier = 0;
    FCString mNotes;
    FCString mName;
};
