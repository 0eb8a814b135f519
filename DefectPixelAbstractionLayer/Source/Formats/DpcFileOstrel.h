// The defect pixel file of the Ostrel camera family: built from defects, and decoded back into them.
#pragma once

#include "DataHelper.h"
#include "ReverseCapability.h"
#include "SensorDefect.h"
#include "SortableVector.h"

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace KTR::DPC
{

// A chain of tagged blocks (tag, length, content), all little-endian. The payload holds one data set for each mirroring
// that the camera can do; a data set is an index table of 16 words, then a stream of 16-bit words whose top two bits
// tell what each word is, and whose low 14 bits are a coordinate. Built in memory only. All errors are a
// KTR::System::Exception. There is no virtual destructor: file objects live on the stack of the adapter that uses them.
class DpcFileOstrel
{
public:
    // Top bits of the words. Cameras hold these numbers: they never change.
    static constexpr std::uint16_t DATA_SET_X = 0x0000;     // one defective pixel's x
    static constexpr std::uint16_t DATA_SET_X_ROW = 0x4000; // first or last x of a run
    static constexpr std::uint16_t DATA_SET_Y = 0x8000;     // opens a row
    static constexpr std::uint16_t DATA_SET_END = 0xC000;   // the whole word that ends a data set

    static constexpr std::uint16_t INFO_SIZE_OSTREL = 32;        // bytes
    static constexpr std::uint16_t INFO_ELEMENT_SIZE_OSTREL = 4; // bytes

    // One entry of a row: a pixel, or a run of pixels.
    struct XCoordinateEntry
    {
        explicit XCoordinateEntry(std::uint16_t pixel) : x(pixel) {}
        XCoordinateEntry(std::uint16_t first, std::uint16_t last) : x(first), xEnd(last), isRange(true) {}

        bool operator<(const XCoordinateEntry& other) const { return x < other.x; }

        std::uint16_t x;
        std::uint16_t xEnd = 0; // the last pixel of a run, inclusive
        bool isRange = false;
    };

    // Sensor size in pixels, cut to 16 bits. Throws for a size of 0 and for a camera that mirrors only in y.
    DpcFileOstrel(ReverseCapability reverseCapability, std::uint32_t width, std::uint32_t height);

    // Appends the index of a data set's words, as files with info blocks carry it: for each of infoSize /
    // infoElementSize bands of the sensor the first pair of words that holds a row of this band.
    virtual void pushBackInfoBlock(const std::vector<std::uint16_t>& words,
                                   const boost::shared_ptr<DataHelper>& helper) const;
    virtual boost::shared_ptr<DataHelper> createFileData();

    // All coordinates are taken modulo 16384. Nothing is merged or dropped; entries of one x stay in the order added.
    virtual void addSinglePixelDefect(std::uint16_t x, std::uint16_t y);
    // From xStart to xEnd, inclusive.
    virtual void addPixelRowDefect(std::uint16_t xStart, std::uint16_t xEnd, std::uint16_t y);
    virtual void addRowDefect(std::uint16_t y);

    // Passes the file to DataHelper::write.
    virtual void writeToFile(std::string fileName);
    // Both build the file anew at each call.
    virtual std::vector<std::uint8_t> getRawData();
    virtual std::size_t getSizeInBytes();

    // One data set: the index table and the body. The argument tells the mirroring that the set is for; x stays as it
    // is in all sets, and the table's positions are those of the unmirrored rows.
    std::vector<std::uint16_t> calculateDataSet(ReverseCapability reverse);

    // Decodes data set 0, the unmirrored one. A run as long as the sensor is wide comes back as a row. Throws when a
    // tag is missing or the data set is not wholly inside the bytes.
    static SensorDefectList getSensorDefectsListFromRawData(const std::vector<std::uint8_t>& bytes,
                                                            std::uint16_t width);
    // Decodes body words. Never fails: malformed words are skipped or end the decoding.
    static SensorDefectList parseSensorDefectsFromDataBlock(const std::vector<std::uint8_t>& bytes,
                                                            std::uint16_t width);
    // Where data set 0 starts and its size, in bytes; both are inside the data.
    static std::pair<std::uint32_t, std::uint32_t> getDPCPayloadStartAndSize(const boost::shared_ptr<DataHelper>& data);
    // The position of a tag: walks from the start in steps of 4 bytes, through block contents as well.
    static std::uint32_t findBlock(const boost::shared_ptr<DataHelper>& data, std::uint32_t tag, std::uint32_t start);

protected:
    using Rows = std::map<std::uint16_t, SortableVector<XCoordinateEntry>>;

    DpcFileOstrel(std::uint16_t infoSize, std::uint16_t infoElementSize, ReverseCapability reverseCapability,
                  std::uint32_t width, std::uint32_t height);

    // The defects by y; each row ascends by x.
    const Rows& rows();
    std::uint16_t width() const { return m_width; }
    std::uint16_t height() const { return m_height; }
    std::uint16_t infoSize() const { return m_infoSize; }
    ReverseCapability reverseCapability() const { return m_reverseCapability; }

private:
    struct AddedEntry
    {
        std::uint16_t y;
        XCoordinateEntry entry;
    };

    void checkConstructorParams() const;
    std::vector<std::uint16_t> indexTable();

    std::uint16_t m_infoSize;
    std::uint16_t m_infoElementSize;
    Rows m_rows;
    // What was added since the rows were last asked for. It goes into the rows in sorted order, so that each entry
    // lands at the end of its row: a long row given backwards would otherwise cost the square of its length.
    std::vector<AddedEntry> m_added;
    std::uint16_t m_width;
    std::uint16_t m_height;
    ReverseCapability m_reverseCapability;
};

} // namespace KTR::DPC
