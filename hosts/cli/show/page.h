#pragma once

#include "hosts/cli/check/finding.h"
#include "hosts/cli/show/html.h"
#include "hosts/cli/show/shown_definition.h"
#include "hosts/cli/show/svg.h"
#include "scriptgen/dialect_columns.h"

#include <span>
#include <string>
#include <vector>

namespace korvex::cli {

struct PageContent {
    std::string source;  ///< where the definitions stand, as people name it
    const ShownDefinition& shown;
    const Findings& findings;
    const Picture& picture;
};

/// One HTML page with everything about the definitions; it needs no other file.
std::string PageText(const PageContent& content);

/// A column of another table that refers to an object.
struct ShownReference {
    std::size_t object = 0;
    const scriptgen::ForeignKey* key = nullptr;
};

/// What the page says about one object beside the object itself.
struct ObjectContent {
    const ShownDefinition& shown;
    std::size_t object = 0;
    std::span<const Finding* const> findings;
    std::span<const ShownReference> references;
    bool isInDiagram = false;
};

/// The part of the page about one object, and its table alone.
Html ObjectPart(const ObjectContent& content);
Html ColumnsPart(const ShownDefinition& shown, const ShownObject& object,
                 std::span<const scriptgen::ColumnsInDialect> dialects);

/// A link to an object; `name` stands for its name where it is given.
Html ObjectAnchor(const ShownObject& object, const std::string& name = {});
Html FindingPart(const Finding& finding, const Html& links);

}  // namespace korvex::cli
