#pragma once

#include <QString>

#include <array>

namespace simulated {

/// Translates the notes of a drum kit into notes of the module.
class NoteMap
{
public:
    /// Every note stays as it is.
    NoteMap();

    /// A larger file is refused.
    static constexpr qint64 largestFile = 1024 * 1024;

    /// A text with one note a line: "FROM TO". FROM is a number from 0 to 127; TO as well, or the name of a
    /// pad zone, or "none" for a note that is ignored. A # begins a comment. Returns false when lines are
    /// wrong, and sets problem to one line for each of them, with its number, and at most 100 lines; the map
    /// is not changed then.
    bool load(const QString &path, QString *problem);
    bool parse(const QString &text, QString *problem);

    /// The note of the module, -1 for a note that is ignored. note is 0 to 127.
    int map(int note) const { return m_notes.at(size_t(note)); }

private:
    std::array<int, 128> m_notes;
};

} // namespace simulated
