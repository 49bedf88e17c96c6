#include "FCClassInfo.h"

#include "FCObject.h"

#include <cstring>

namespace {
// Constant-initialised: safe to use from any registry entry's constructor.
constinit const FCClassInfo* gFirstClass = nullptr;
constinit int gClassCount = 0;
} // namespace

FCClassInfo::FCClassInfo(const char* className, const char* baseName, const char* secondBaseName,
                         int objectSize, Factory factory)
    : mClassName(className), mBaseName(baseName), mSecondBaseName(secondBaseName),
      mObjectSize(objectSize), mFactory(factory), mNext(gFirstClass) {
    gFirstClass = this;
    ++gClassCount;
}

FCObject* FCClassInfo::CreateObject() const {
    return mFactory ? mFactory() : nullptr;
}

bool FCClassInfo::IsDerivedFrom(const FCClassInfo* other) const {
    if (!other)
        return false;
    // Class chains are a handful deep; a bound guards against a cycle in bad registrations.
    const FCClassInfo* info = this;
    for (int depth = 0; info && depth < 32; ++depth) {
        if (info == other)
            return true;
        if (info->mSecondBaseName) {
            const FCClassInfo* second = Find(info->mSecondBaseName);
            if (second && second != info && second->IsDerivedFrom(other))
                return true;
        }
        info = info->mBaseName ? Find(info->mBaseName) : nullptr;
    }
    return false;
}

const FCClassInfo* FCClassInfo::Find(const char* className) {
    if (!className)
        return nullptr;
    for (const FCClassInfo* info = gFirstClass; info; info = info->mNext) {
        if (std::strcmp(info->mClassName, className) == 0)
            return info;
    }
    return nullptr;
}

int FCClassInfo::GetRegisteredCount() {
    return gClassCount;
}

FCObject* FCCreateDynamicObject(const char* className) {
    const FCClassInfo* info = FCClassInfo::Find(className);
    return info ? info->CreateObject() : nullptr;
}
