#pragma once

#include <QtGlobal>

#include <functional>
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

    // The buttons (PointerButtons bits) pressed in the input the last
    // takeActivity() saw, also those released again since: a short click
    // falls between two polls. 0 where the platform cannot tell.
    virtual int pressedButtons() const { return 0; }
    // Calls `onInput` once, on the calling thread, as soon as input arrives,
    // so that the poll may rest meanwhile. False when this source cannot.
    virtual bool wakeOnInput(std::function<void()> onInput)
    {
        Q_UNUSED(onInput)
        return false;
    }

    static std::unique_ptr<PointerActivity> create();
};
