#include "ZipArchive.h"

#include <stdexcept>
#include <zlib.h>

namespace gigeemu {

namespace {
void le16(std::vector<std::uint8_t>& out, std::uint32_t v)
{
    out.push_back(std::uint8_t(v));
    out.push_back(std::uint8_t(v >> 8));
}

void le32(std::vector<std::uint8_t>& out, std::uint32_t v)
{
    le16(out, v & 0xFFFF);
    le16(out, v >> 16);
}

std::vector<std::uint8_t> rawDeflate(const std::string& content)
{
    z_stream z{};
    // Negative window bits: raw deflate, as zip entries carry no zlib header.
    if (deflateInit2(&z, Z_BEST_COMPRESSION, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        throw std::runtime_error("deflateInit2 failed");
    std::vector<std::uint8_t> out(deflateBound(&z, uLong(content.size())));
    z.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(content.data()));
    z.avail_in = uInt(content.size());
    z.next_out = out.data();
    z.avail_out = uInt(out.size());
    const int rc = deflate(&z, Z_FINISH);
    out.resize(z.total_out);
    deflateEnd(&z);
    if (rc != Z_STREAM_END)
        throw std::runtime_error("deflate failed");
    return out;
}

void entryHeader(std::vector<std::uint8_t>& out, std::uint32_t crc, std::uint32_t packed, std::uint32_t size,
                 std::uint32_t nameLength)
{
    le16(out, 20);      // version needed
    le16(out, 0);       // flags
    le16(out, 8);       // deflate
    le16(out, 0);       // time
    le16(out, 0x21);    // date: 1980-01-01
    le32(out, crc);
    le32(out, packed);
    le32(out, size);
    le16(out, nameLength);
    le16(out, 0);       // extra
}
} // namespace

std::vector<std::uint8_t> zipOneFile(const std::string& name, const std::string& content)
{
    const std::vector<std::uint8_t> packed = rawDeflate(content);
    const std::uint32_t crc = std::uint32_t(
        crc32(0, reinterpret_cast<const Bytef*>(content.data()), uInt(content.size())));
    std::vector<std::uint8_t> out;
    le32(out, 0x04034b50);
    entryHeader(out, crc, std::uint32_t(packed.size()), std::uint32_t(content.size()), std::uint32_t(name.size()));
    out.insert(out.end(), name.begin(), name.end());
    out.insert(out.end(), packed.begin(), packed.end());

    const std::uint32_t central = std::uint32_t(out.size());
    le32(out, 0x02014b50);
    le16(out, 20); // version made by
    entryHeader(out, crc, std::uint32_t(packed.size()), std::uint32_t(content.size()), std::uint32_t(name.size()));
    le16(out, 0);  // comment
    le16(out, 0);  // disk
    le16(out, 0);  // internal attributes
    le32(out, 0);  // external attributes
    le32(out, 0);  // local header offset
    out.insert(out.end(), name.begin(), name.end());
    const std::uint32_t centralSize = std::uint32_t(out.size()) - central;

    le32(out, 0x06054b50);
    le16(out, 0);
    le16(out, 0);
    le16(out, 1);
    le16(out, 1);
    le32(out, centralSize);
    le32(out, central);
    le16(out, 0);
    return out;
}

} // namespace gigeemu
