#include "DChosenLanguage.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DChosenLanguage, "FCObject", nullptr)

FCObject* DChosenLanguage::Clone() const {
    return new DChosenLanguage(*this);
}

void DChosenLanguage::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    archive.Transfer(mLanguageGuid);
    archive.Transfer(mLanguageFlags);
}
