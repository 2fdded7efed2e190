#pragma once

#include "CheckSetting.h"
#include "Formulas.h"

#include "support/HostBorder.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace qen::benchmarks {

/// Makes the calls again that checks of formulas make of the host. Needs the setting to be installed.
class HostReplay {
public:
    /// The calls of the nine texts of a formula, which differ in one digit.
    class Calls {
    public:
        /// Makes the calls of the check of one of the texts, with the same arguments and in the same order, and drops
        /// what the host answers.
        void repeat(const std::string& p_text) const
        {
            for (const support::HostCall& call : m_calls[index(p_text[m_digit])])
                call();
        }

        /// Of the first text.
        std::size_t count() const { return m_calls.front().size(); }

        /// What the library takes from the heap for the first text, without its host.
        std::size_t blocksOfLibrary() const { return m_blocks; }

    private:
        friend class HostReplay;

        static std::size_t index(char p_digit) { return static_cast<std::size_t>(p_digit - '1'); }

        std::size_t m_digit = 0;
        std::array<std::vector<support::HostCall>, 9> m_calls;
        std::size_t m_blocks = 0;
    };

    explicit HostReplay(const CheckSetting& p_setting);

    /// Checks the formula, which must pass, first unnoted: what is kept from a first check is not asked again.
    ///
    /// @throws std::runtime_error  A check does not pass.
    Calls callsOf(const Formula& p_formula);

private:
    void check(const Formula& p_formula, const std::string& p_text);

    support::WatchedHost m_host;
    VarAvailabilityChecker m_availability;
    DimExprChecker m_checker;
};

}    // namespace qen::benchmarks
