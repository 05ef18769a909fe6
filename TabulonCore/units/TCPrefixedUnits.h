#pragma once

// Makes the prefixed units of one basic unit: kilometres of metres. Used by the loader, for some thousands of
// units, so that whatever they have in common is worked out once. Used by one thread.

#include "runtime/Ref.h"
#include "runtime/String.h"
#include "units/TCBasicUnit.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace TBF {
class Number;
}

// A prefix of a power of ten. Without a size no units can be made with it.
struct TCUnitPrefix {
    int64_t exponent = 0;
    TBF::Ref<TBF::String> prefix; // before long names, such as "kilo"; null for none
    TBF::Ref<TBF::String> symbol; // before very short names, such as "k"; null for none
    TBF::Ref<TBF::Number> factor;
};

class TCPrefixedUnits {
public:
    explicit TCPrefixedUnits(std::shared_ptr<const TCBasicUnit> unit);
    ~TCPrefixedUnits();

    // "si+3-metre"
    static std::string identifier(int64_t exponent, const std::string& unitIdentifier);

    // `allowsShortNames` says whether the prefix's symbol makes names as well. Null if there is no size.
    std::shared_ptr<TCBasicUnit> unitWithPrefix(const TCUnitPrefix& prefix, bool allowsShortNames) const;

private:
    // A name or alias of the unit in the two forms that prefixes go before.
    struct Name {
        TBFUnitNameType type = TBFUnitNameTypeNone;
        bool isAlias = false;
        bool isCaseSensitive = false;
        TBF::Ref<TBF::String> asWritten;
        TBF::Ref<TBF::String> inLongForm; // in lower case, unless it matches only as written
    };

    void add(const TBF::Ref<TBF::String>& text, TBFUnitNameType type, bool isAlias);
    TBF::Ref<TBF::Number> factorWithPrefix(const TCUnitPrefix& prefix) const;

    std::shared_ptr<const TCBasicUnit> base;
    std::vector<Name> names;
};
