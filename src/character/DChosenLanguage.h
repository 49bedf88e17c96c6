#pragma once

#include "FCObject.h"

#include <QUuid>

// A language that a character or race speaks.
class DChosenLanguage : public FCObject {
    FC_DECLARE_CLASS(DChosenLanguage)
public:
    DChosenLanguage() = default;
    explicit DChosenLanguage(const QUuid& languageGuid) : mLanguageGuid(languageGuid) {}
    DChosenLanguage(const DChosenLanguage& other) = default;
    DChosenLanguage& operator=(const DChosenLanguage& other) = default;
    ~DChosenLanguage() override = default;

    FCObject* Clone() const override;
    void Serialize(FCArchive& archive) override;

    QUuid GetLanguageGuid() const { return mLanguageGuid; }
    void SetLanguageGuid(const QUuid& guid) { mLanguageGuid = guid; }

    unsigned GetLanguageFlags() const { return mLanguageFlags; }
    void AddLanguageFlag(unsigned flag) { mLanguageFlags |= flag; }
    bool HasLanguageFlag(unsigned flag) const { return (mLanguageFlags & flag) != 0; }

private:
    QUuid mLanguageGuid;
    quint32 mLanguageFlags = 0;
};
