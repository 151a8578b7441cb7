// A read-only stream buffer over characters that someone else owns. It lets a
// pass lex a text it already holds (a std::string_view of a whole file) without
// copying it into a string stream first. The characters must outlive the buffer.
#ifndef VARNEL_IMEMBUF_H
#define VARNEL_IMEMBUF_H

#include <istream>
#include <streambuf>
#include <string_view>

namespace Varnel {

class IMemBuf : public std::streambuf {
public:
    explicit IMemBuf(std::string_view text)
    {
        char* p = const_cast<char*>(text.data()); // never written through: no put area
        setg(p, p, p + text.size());
    }

protected:
    pos_type seekoff(off_type off, std::ios_base::seekdir dir, std::ios_base::openmode which) override
    {
        if (!(which & std::ios_base::in))
            return pos_type(off_type(-1));
        off_type base = 0;
        if (dir == std::ios_base::cur)
            base = gptr() - eback();
        else if (dir == std::ios_base::end)
            base = egptr() - eback();
        const off_type target = base + off;
        if (target < 0 || target > egptr() - eback())
            return pos_type(off_type(-1));
        setg(eback(), eback() + target, egptr());
        return pos_type(target);
    }

    pos_type seekpos(pos_type pos, std::ios_base::openmode which) override
    {
        return seekoff(off_type(pos), std::ios_base::beg, which);
    }
};

// An input stream over an IMemBuf.
class IMemStream : public std::istream {
public:
    explicit IMemStream(std::string_view text) : std::istream(nullptr), m_buf(text) { rdbuf(&m_buf); }

private:
    IMemBuf m_buf;
};

} // namespace Varnel

#endif
