#include "D_UIFileObjectItem.h"

#include "DFileObject.h"

D_UIFileObjectItem::~D_UIFileObjectItem() = default;

void D_UIFileObjectItem::SetFileObject(DFileObject* fileObject) {
    if (fileObject)
        fileObject->Retain();
    mFileObject.reset(fileObject);
}
