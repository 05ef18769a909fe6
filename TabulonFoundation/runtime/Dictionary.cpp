#include "runtime/Dictionary.h"

#include <utility>
#include <vector>

namespace TBF {

Ref<Dictionary> Dictionary::create() {
    return make<Dictionary>();
}

void* Dictionary::value(std::u16string_view key) const {
    const auto found = entries.find(key);
    return found != entries.end() ? found->second : nullptr;
}

void Dictionary::setValue(void* value, String* key) {
    entries.insert_or_assign(TBF::retain(key), value);
}

void Dictionary::removeValue(std::u16string_view key) {
    const auto found = entries.find(key);
    if (found != entries.end()) entries.erase(found);
}

void Dictionary::apply(void (*function)(String* key, void* value, void* context), void* context) const {
    const std::vector<std::pair<Ref<String>, void*>> present(entries.begin(), entries.end());
    for (const auto& [key, value] : present)
        function(key.get(), value, context);
}

} // namespace TBF
