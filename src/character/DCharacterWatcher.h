#pragma once

class DCharacter;

// How a character tells its window that it changed or that a page should come forward.
class DCharacterWatcher {
public:
    virtual ~DCharacterWatcher() = default;
    virtual void HandleCharacterHasChanged(DCharacter* character) = 0;
    virtual void ActivateFrame(int frame) = 0;
};
