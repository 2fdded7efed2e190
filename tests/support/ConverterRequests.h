#pragma once

namespace qen::support {

/// While it lives, the scripted host also notes that it is asked for its units converter, as "converter.instance()".
/// Most tests care only about what the converter is then asked.
class ConverterRequests {
public:
    ConverterRequests() { m_noted = true; }
    ~ConverterRequests() { m_noted = false; }
    ConverterRequests(const ConverterRequests&) = delete;
    ConverterRequests& operator=(const ConverterRequests&) = delete;

    static bool areNoted() { return m_noted; }

private:
    static inline bool m_noted = false;
};

}    // namespace qen::support
