#pragma once

#include "qcl/QclDocument.h"
#include "qcl/QclReader.h"
#include "StandaloneApi.h"

#include <cstddef>
#include <memory>
#include <string>

namespace qen::standalone {

/// Reads a file again and again while it is being edited, and looks only at what changed.
///
/// A section goes from its header to the line before the next header or include. What it says depends on its text
/// alone, so that a section whose text stood somewhere in the last reading, in whichever file, is taken over from there.
///
/// Between readings it keeps the texts of the files of the last one and what their sections say: about as much memory
/// as the last document, however often it has read. Documents that were handed out own what they point to.
class QEN_STANDALONE_API QclFollower {
public:
    explicit QclFollower(std::string p_path, const QclLimits& p_limits = {});
    ~QclFollower();
    QclFollower(QclFollower&& p_other) noexcept;
    QclFollower& operator=(QclFollower&& p_other) noexcept;

    /// Reads the file and what it includes from the disk: the same as readQclFile() gives, and the numbers of the
    /// objects' contents besides.
    QclDocument read();

    /// How many sections the last reading had to read, because the one before it did not have them.
    std::size_t sectionsParsed() const;

private:
    struct Impl;

    std::unique_ptr<Impl> m_impl;
};

}    // namespace qen::standalone
