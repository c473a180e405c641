#pragma once

#include "platform/PointerActivity.h"

// Reading the pointer costs no round trip on Windows, so the poll always reads.
class WinPointerActivity : public PointerActivity
{
public:
    bool takeActivity() override { return true; }
};
