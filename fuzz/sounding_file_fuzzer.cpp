#include "core/base/mexception.h"
#include "exchange/sounding_file.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

// A file of another program: it is read or refused, and what is read is finite.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        const SoundingTable table = readSoundingFile({data, size});
        for (const ImportedReading& reading : importedReadings(table, table.columns))
            if (!(reading.depth * 0.0 == 0.0))
                std::abort();
    } catch (const MException&) {
    }
    return 0;
}
