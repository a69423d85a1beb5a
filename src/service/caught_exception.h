// An exception of the class library that was caught and is not passed on.
#pragma once

#include <memory>

#include "platform/base/exception.h"

struct CDeleteException
{
    void operator()(CException* pException) const { pException->Delete(); }
};
using CCaughtException = std::unique_ptr<CException, CDeleteException>;
