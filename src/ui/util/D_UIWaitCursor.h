#pragma once

#include <QApplication>

// The wait cursor for as long as it lives: building monsters or hoards can take a moment.
class D_UIWaitCursor {
public:
    D_UIWaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~D_UIWaitCursor() { QApplication::restoreOverrideCursor(); }
    D_UIWaitCursor(const D_UIWaitCursor&) = delete;
    D_UIWaitCursor& operator=(const D_UIWaitCursor&) = delete;
};
