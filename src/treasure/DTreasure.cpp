#include "DTreasure.h"

#include "FCArchive.h"
#include "FCFileManager.h"

FC_IMPLEMENT_CLASS(DTreasure, "DItemCollection", nullptr)

void DTreasure::Serialize(FCArchive& archive) {
    DItemCollection::Serialize(archive);
    mCurrency.Serialize(archive);
    archive.Transfer(mNotes);
}

void DTreasure::GetTotalCost(DCurrency& total) const {
    for (const DItem* item : GetItemArray()) {
        DCurrency cost;
        item->GetMarketCost(cost);
        total += cost;
    }
    total += mCurrency;
}

bool DTreasure::SaveToFile(const QString& path) const {
    return FCArchive::WriteFile(FCFileManager::ResolvePath(FCString(path)), kFileSignature,
                                kFileVersion, this);
}

DTreasure* DTreasure::CreateFromFile(const QString& path) {
    return static_cast<DTreasure*>(FCArchive::ReadFile(FCFileManager::ResolvePath(FCString(path)),
                                                       kFileSignature, false, nullptr,
                                                       GetStaticClassInfo()));
}
