#pragma once

// Told when an edit of a collection entry has been accepted, with the entry's old and new id.
class DEditWatcher {
public:
    virtual ~DEditWatcher() = default;
    virtual void HandleEditAccepted(int oldId, int newId) = 0;
};
