#include "peer.h"
#include "peer_reader.h"
#include "persistence/format.h"
#include "platform/uuid.h"

#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace
{

// The rows of a register as so many nodes of a map, in the order of the file: no key is looked at.
template <class Key, class Value>
struct RowsInFileOrder {
    std::map<std::size_t, std::pair<Key, Value>> rows;

    void insert(std::pair<Key, Value>&& entry)
    {
        rows.emplace_hint(rows.end(), rows.size(), std::move(entry));
    }
};

// Takes the bytes as they come. Whatever they say is believed.
class BareSource
{
public:
    explicit BareSource(const std::uint8_t* at)
        : at_(at)
    {
    }

    std::uint8_t byte() { return *at_++; }
    std::uint32_t word()
    {
        std::uint32_t value = 0;
        std::memcpy(&value, at_, sizeof value);
        at_ += sizeof value;
        return value;
    }
    void text(std::wstring& value)
    {
        const std::uint32_t length = word();
        value = std::wstring(length, L'\0');
        for (wchar_t& character : value)
            character = *at_++;
    }
    void guid(Uuid&) { at_ += word(); }

    template <class Key, class Value, class Order>
    RowsInFileOrder<Key, Value>& rowsOf(std::map<Key, Value, Order>&) requires(
        !std::same_as<Key, std::uint8_t>)
    {
        auto rows = std::make_shared<RowsInFileOrder<Key, Value>>();
        registers_.push_back(rows);
        return *rows;
    }
    // The small maps inside a record stay there.
    template <class Value>
    auto rowsOf(std::map<std::uint8_t, Value>& values)
    {
        struct Rows {
            std::map<std::uint8_t, Value>& map;

            void insert(std::pair<std::uint8_t, Value>&& entry)
            {
                map.emplace_hint(map.end(), entry.first, std::move(entry.second));
            }
        };
        return Rows{values};
    }

    // The registers, to be kept for as long as the rest.
    std::vector<std::shared_ptr<void>> takeRegisters() { return std::move(registers_); }

private:
    const std::uint8_t* at_;
    std::vector<std::shared_ptr<void>> registers_;
};

struct Strings {
    Reference<DBProject> rest = makeReference<DBProject>();
    std::vector<std::shared_ptr<void>> registers;
};

class File
{
public:
    File(const std::string& path, int flags)
        : descriptor_(::open(path.c_str(), flags | O_CLOEXEC, 0666))
    {
        if (descriptor_ < 0)
            failPeer("cannot open " + path);
    }
    ~File() { ::close(descriptor_); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    std::vector<std::uint8_t> readAll() const
    {
        std::vector<std::uint8_t> bytes(static_cast<std::size_t>(::lseek(descriptor_, 0, SEEK_END)));
        if (::pread(descriptor_, bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
            failPeer("a file was read in part");
        return bytes;
    }
    void writeAll(const std::vector<std::uint8_t>& bytes) const
    {
        if (::write(descriptor_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
            failPeer("a file was written in part");
    }

private:
    int descriptor_;
};

std::shared_ptr<void> openBare(const std::string& path)
{
    const std::vector<std::uint8_t> bytes = File(path, O_RDONLY).readAll();
    BareSource source(bytes.data() + format::projectHead.contentOffset);
    PeerReader reader(source);
    auto strings = std::make_shared<Strings>();
    projectFields(reader, *strings->rest);
    strings->registers = source.takeRegisters();
    return strings;
}

void writeBare(const std::string& path, IDBProject&, const std::vector<std::uint8_t>& engineBytes)
{
    File(path + ".new", O_WRONLY | O_CREAT | O_TRUNC).writeAll(engineBytes);
    flushAndReplace(path + ".new", path);
}

} // namespace

const Peer& barePeer()
{
    static const Peer peer{"bare", openBare, writeBare, {}};
    return peer;
}
