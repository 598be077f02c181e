#pragma once

#include "FieldChange.h"
#include "FieldKind.h"
#include "NumberText.h"
#include "TextScanner.h"

#include <cstdint>
#include <limits>
#include <vector>

/// Images of `Dimensions` dimensions: their sizes, the number of components, then one number for each pixel.
template <class Field, class Size, int Dimensions>
class ImageFieldKind final : public FieldKind
{
public:
    bool setValue(SoField& base, std::string_view text) const override
    {
        TextScanner scanner(text);
        Size size;
        int components = 0;
        std::uint64_t pixels = 1;
        for (int i = 0; i < Dimensions; ++i) {
            if (!readNumber(scanner.takeWord(), size[i]) || size[i] < 0)
                return false;
            pixels *= static_cast<std::uint64_t>(size[i]);
        }
        if (!readNumber(scanner.takeWord(), components) || components < 0 || components > 4)
            return false;
        // A text that has fewer characters than its image has pixels must not make us reserve room for them.
        if (pixels > scanner.rest().size() || pixels * components > std::numeric_limits<int>::max())
            return false;

        std::vector<unsigned char> bytes;
        bytes.reserve(pixels * components);
        for (std::uint64_t pixel = 0; pixel < pixels; ++pixel) {
            std::uint32_t word = 0;
            if (!readNumber(scanner.takeWord(), word) || std::uint64_t(word) >> 8 * components != 0)
                return false;
            for (int component = components - 1; component >= 0; --component)
                bytes.push_back(static_cast<unsigned char>(word >> 8 * component));
        }
        if (!scanner.atEnd())
            return false;
        const FieldChange change(base);
        static_cast<Field&>(base).setValue(size, components, bytes.data());
        return true;
    }
};
