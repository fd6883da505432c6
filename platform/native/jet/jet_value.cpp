#include "platform/native/jet/jet_value.h"

#include "automation/text.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <span>
#include <string>

namespace korvex::native::jet {

namespace {

using automation::Variant;
using Octets = std::span<const unsigned char>;

template <class Number>
Number ReadNumber(Octets from, std::size_t at = 0) {
    static_assert(std::endian::native == std::endian::little, "the files are little-endian");
    if (from.size() < at + sizeof(Number)) throw UnreadableValue("is too short");
    Number number;
    std::memcpy(&number, from.data() + at, sizeof number);
    return number;
}

/// A number that is the whole value.
template <class Number>
Number WholeNumber(Octets value) {
    if (value.size() != sizeof(Number)) throw UnreadableValue("has the wrong length");
    return ReadNumber<Number>(value);
}

/// Compressed text holds one byte for each character of the first 255; a zero byte turns to two bytes each,
/// and back.
std::u16string Expand(Octets text) {
    std::u16string expanded;
    bool isCompressed = true;
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] == 0) {
            isCompressed = !isCompressed;
            ++i;
        } else if (isCompressed) {
            expanded += static_cast<char16_t>(text[i++]);
        } else {
            expanded += ReadNumber<char16_t>(text, i);
            i += sizeof(char16_t);
        }
    }
    return expanded;
}

std::string OldText(MdbHandle& file, Octets text) {
    std::string converted(text.size() * 4 + 1, '\0');
    const int size = mdb_unicode2ascii(&file, reinterpret_cast<const char*>(text.data()), text.size(),
                                       converted.data(), converted.size());
    converted.resize(size < 0 ? 0U : static_cast<std::size_t>(size));
    return converted;
}

std::string TextOf(MdbHandle& file, Octets text) {
    if (text.empty()) return {};
    if (file.f->jet_version == MDB_VER_JET3) return OldText(file, text);
    const bool isCompressed = text.size() >= 2 && text[0] == 0xFF && text[1] == 0xFE;
    std::u16string units;
    if (isCompressed) {
        units = Expand(text.subspan(2));
    } else {
        if (text.size() % sizeof(char16_t) != 0) throw UnreadableValue("ends within a character");
        units.resize(text.size() / sizeof(char16_t));
        std::memcpy(units.data(), text.data(), text.size());
    }
    std::string converted = automation::ToUtf8(units);
    if (automation::ToUtf16(converted) != units) throw UnreadableValue("holds half a character");
    return converted;
}

/// One piece of a long value, on a page of its own.
Octets PieceAt(MdbHandle& file, std::uint32_t place) {
    void* page = nullptr;
    int start = 0;
    std::size_t size = 0;
    if (mdb_find_pg_row(&file, static_cast<int>(place), &page, &start, &size) != 0 || start < 0 ||
        static_cast<std::size_t>(start) + size > static_cast<std::size_t>(file.fmt->pg_size)) {
        throw UnreadableValue("has a part that cannot be found");
    }
    return {static_cast<const unsigned char*>(page) + start, size};
}

/// The bytes of a long value: behind its head, on one other page, or on a chain of pages.
automation::Bytes LongValue(MdbHandle& file, Octets value) {
    constexpr std::uint32_t Inline = 0x80000000;
    constexpr std::uint32_t OnePage = 0x40000000;
    constexpr std::size_t PieceHeadSize = 4;
    automation::Bytes bytes;
    if (value.empty()) return bytes;
    if (value.size() < MDB_MEMO_OVERHEAD) throw UnreadableValue("is too short");
    const auto head = ReadNumber<std::uint32_t>(value);
    const std::size_t size = head & ~(Inline | OnePage);
    const auto add = [&](Octets piece) { bytes.insert(bytes.end(), piece.begin(), piece.end()); };
    auto place = ReadNumber<std::uint32_t>(value, PieceHeadSize);
    if ((head & Inline) != 0) {
        add(value.subspan(MDB_MEMO_OVERHEAD));
    } else if ((head & OnePage) != 0) {
        add(PieceAt(file, place));
    } else {
        while (bytes.size() < size && place != 0) {
            const Octets piece = PieceAt(file, place);
            place = ReadNumber<std::uint32_t>(piece);
            if (piece.size() == PieceHeadSize) throw UnreadableValue("has an empty part");
            add(piece.subspan(PieceHeadSize));
        }
    }
    if (bytes.size() != size) throw UnreadableValue("does not have the length that it should have");
    return bytes;
}

std::string Identifier(Octets value) {
    if (value.size() != 16) throw UnreadableValue("has the wrong length");
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}",
                  ReadNumber<std::uint32_t>(value), ReadNumber<std::uint16_t>(value, 4),
                  ReadNumber<std::uint16_t>(value, 6), value[8], value[9], value[10], value[11], value[12],
                  value[13], value[14], value[15]);
    return text.data();
}

std::string Decimal(MdbHandle& file, const MdbColumn& column, const MdbField& field) {
    constexpr int size = 17;
    if (field.siz != size) throw UnreadableValue("has the wrong length");
    const std::unique_ptr<char, decltype(&g_free)> text(
        mdb_numeric_to_string(&file, field.start, column.col_scale, column.col_prec), g_free);
    return text.get();
}

/// The bytes of a field within the page that the file stands on.
Octets BytesOf(const MdbHandle& file, const MdbField& field) {
    if (field.start < 0 || field.siz < 0 || field.start + field.siz > file.fmt->pg_size)
        throw UnreadableValue("lies outside of its page");
    return {file.pg_buf + field.start, static_cast<std::size_t>(field.siz)};
}

}  // namespace

Variant FieldValue(MdbHandle& file, const MdbColumn& column, const MdbField& field) {
    if (column.col_type == MDB_BOOL) return field.is_null == 0;
    if (field.is_null != 0) return Variant::Null();
    const Octets value = BytesOf(file, field);
    switch (column.col_type) {
        case MDB_BYTE:
            return WholeNumber<std::uint8_t>(value);
        case MDB_INT:
            return WholeNumber<std::int16_t>(value);
        case MDB_LONGINT:
            return WholeNumber<std::int32_t>(value);
        case MDB_MONEY:
            return automation::Currency{WholeNumber<std::int64_t>(value)};
        case MDB_FLOAT:
            return WholeNumber<float>(value);
        case MDB_DOUBLE:
            return WholeNumber<double>(value);
        case MDB_DATETIME:
            return automation::Date{WholeNumber<double>(value)};
        case MDB_BINARY:
            return automation::Bytes(value.begin(), value.end());
        case MDB_TEXT:
            return TextOf(file, value);
        case MDB_OLE:
            return LongValue(file, value);
        case MDB_MEMO:
            return TextOf(file, LongValue(file, value));
        case MDB_REPID:
            return Identifier(value);
        case MDB_NUMERIC:
            return Decimal(file, column, field);
        default:
            throw UnreadableValue("has a type that is not known here (" + std::to_string(column.col_type) +
                                  ")");
    }
}

}  // namespace korvex::native::jet
