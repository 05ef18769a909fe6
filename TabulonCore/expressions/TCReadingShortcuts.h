#pragma once

// Most lines are plain, and need little of what reading a line can take. Cheap tests here tell which stage of
// a reading (TCLineReading.h) a line can do without. A shortcut never changes what a reading gives: with the
// switch off, which is for tests, every line goes the whole road to the same outcome. The switch also rules
// those that stand elsewhere:
//
//   substitute   TCExpressionClues, patterns without their clues aren't run
//   analyze      TBF::analyzePlainCalculation, calculations without a word to decide about
//   collect      TCPlainLineReferences, references as editors and phrases write them
//
// Pure but for the switch, which is set while nothing is read.

#include <atomic>
#include <string_view>

class TCExpression;

class TCReadingShortcuts {
public:
    static bool areEnabled() { return enabled.load(std::memory_order_relaxed); }
    static void setEnabled(bool enable) { enabled.store(enable, std::memory_order_relaxed); }

    // All are about a substituted text, and true where the question is open.

    // A line without an equals sign is an ordinary one, which is seen without its tokens.
    static bool mayDeclare(std::u16string_view text) {
        return !areEnabled() || text.find(u'=') != std::u16string_view::npos;
    }

    // Lines of nothing but numbers and operators use no names.
    static bool mayUseNames(std::u16string_view text) {
        return !areEnabled() ||
               text.find_first_not_of(u"0123456789 \t.,+-*/()^%=") != std::u16string_view::npos;
    }

    // Every reference to a line is a call of a function whose name begins so.
    static bool mayReferToLines(std::u16string_view text) {
        return !areEnabled() || text.find(u"___") != std::u16string_view::npos;
    }

    // Where both texts are the same and no token stands for several, what is shown is what was analyzed.
    static bool showsWhatItSays(const TCExpression& expression);

private:
    inline static std::atomic<bool> enabled = true;
};
