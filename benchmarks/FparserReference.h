#pragma once

#include "Formulas.h"

#include <fparser.hh>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace qen::benchmarks {

/// fparser with everything that the formulas name, given once.
class FparserReference {
public:
    /// A formula as fparser writes it.
    static std::string textOf(const Formula& p_formula)
    {
        std::string text = p_formula.plain;
        const std::size_t question = text.find('?');
        if (question != std::string::npos)
        {
            const std::size_t colon = text.find(':', question);
            text = "if(" + text.substr(0, question) + "," + text.substr(question + 1, colon - question - 1) +
                   "," + text.substr(colon + 1) + ")";
        }
        for (const auto& [written, meant] :
             {std::pair("ln(", "log("), std::pair("&&", "&"), std::pair("||", "|")})
            for (std::size_t at = text.find(written); at != std::string::npos;
                 at = text.find(written, at + 4))
                text.replace(at, std::string_view(written).size(), meant);
        return text;
    }

    /// Parses a formula.
    ///
    /// @throws std::runtime_error  The formula is bad.
    void operator()(const std::string& p_text)
    {
        if (m_parser.Parse(p_text, m_variables) >= 0)
            throw std::runtime_error(std::string("fparser: ") + m_parser.ErrorMsg() + " in " + p_text);
    }

private:
    FunctionParser m_parser;
    std::string m_variables =
        "mps,s,m,Pa,K,Wm2,kgps,ps,bar,rpm,visc,htc,C,acc,t,r,x,y,z,g,pi,Density,Velocityu,"
        "Temperature,TotalPressure";
};

}    // namespace qen::benchmarks
