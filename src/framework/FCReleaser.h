#pragma once

#include "FCObject.h"

#include <memory>

// Gives back the one reference a scope holds on a retain/release object:
// FCRef<DCharacter> keeps a character for as long as the scope that made it.
struct FCReleaser {
    void operator()(FCObject* object) const {
        if (object)
            object->Release();
    }
};

template <typename T> using FCRef = std::unique_ptr<T, FCReleaser>;
