#pragma once

#include <memory>

// Tells the pointer poll whether the pointer may have moved or a button
// changed since it last asked, so that the poll can leave the window system
// alone while the presenter's hand rests.
class PointerActivity
{
public:
    virtual ~PointerActivity() = default;

    // True when input arrived since the last call, or when that cannot be known.
    virtual bool takeActivity() = 0;

    static std::unique_ptr<PointerActivity> create();
};
