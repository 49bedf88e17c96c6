#pragma once

#include "FCReleaser.h"
#include "SortListItem.h"

class DFileObject;

// A list row standing for an object file (a race, a character, a table): it holds its own
// reference to the file's entry.
class D_UIFileObjectItem : public SortListItem {
public:
    using SortListItem::SortListItem;
    ~D_UIFileObjectItem() override;

    DFileObject* GetFileObject() const { return mFileObject.get(); }
    // Takes a reference of its own; null clears.
    void SetFileObject(DFileObject* fileObject);

private:
    FCRef<DFileObject> mFileObject;
};
