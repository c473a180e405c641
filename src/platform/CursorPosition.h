#pragma once

#include <QPoint>

#include <memory>
#include <optional>

// The pointer's position in global desktop pixels, readable from any one
// thread (the recording worker's); empty when the window system cannot say.
class CursorPosition
{
public:
    virtual ~CursorPosition() = default;

    virtual std::optional<QPoint> position() const = 0;

    static std::unique_ptr<CursorPosition> create();
};
