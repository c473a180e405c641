#pragma once

#include "platform/LoginEntry.h"

// The login entry as the value "Glimmora" in the current user's Run key.
class RunKeyLoginEntry : public LoginEntry
{
public:
    bool add(const QString &executablePath) override;
    bool remove() override;
};
