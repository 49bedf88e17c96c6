#include "DItemArchive.h"

void DTransferOwnedObject(FCArchive& archive, FCObject*& slot) {
    if (archive.IsStoring()) {
        archive.WriteObject(slot);
        return;
    }
    FCObject* read = archive.ReadObject();
    if (slot)
        slot->Release();
    slot = read;
}
