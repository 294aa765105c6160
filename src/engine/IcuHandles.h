#pragma once

#include <unicode/ucol.h>
#include <unicode/ucoleitr.h>
#include <unicode/usearch.h>
#include <unicode/uset.h>

#include <memory>

namespace ostrel {

template<auto close>
struct IcuCloser
{
    template<typename T>
    void operator()(T *object) const
    {
        close(object);
    }
};

using IcuCollator = std::unique_ptr<UCollator, IcuCloser<ucol_close>>;
using IcuElements = std::unique_ptr<UCollationElements, IcuCloser<ucol_closeElements>>;
using IcuSearchHandle = std::unique_ptr<UStringSearch, IcuCloser<usearch_close>>;
using IcuSet = std::unique_ptr<USet, IcuCloser<uset_close>>;

} // namespace ostrel
