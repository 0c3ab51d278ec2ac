/// The editor of the delimited formats, without its window: the table, the entry that is shown, the cursor among its
/// fields, and what may not be changed.
///
/// Every change either takes effect in the table at once or is refused with a message and changes nothing. Texts are
/// UTF-8, except the list of fields and the delimiter, which are in 8-bit characters.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/delimited/definitions_file.h"
#include "run/message.h"
#include "run/run_settings.h"

namespace tovak::formats::delimited {

enum class EditorPurpose { InputFile, OutputFile, Utility };

/// " User-Defined Delimited Format for Input File" and so on.
std::string editorTitle(EditorPurpose purpose);

/// The formats of a session, and the entries that were chosen last for its source and target files.
struct DefinedFormats {
  DelimitedFormatTable table = {};
  /// What the definitions file was last read as, or saved from.
  DelimitedFormatTable saved = {};
  std::size_t chosenSource = 0;
  std::size_t chosenTarget = 0;
};

class FormatEditor {
 public:
  using Refusal = std::optional<run::Message>;

  /// A field's place in the list of fields.
  struct Place {
    std::size_t start = 0;
    std::size_t length = 0;
  };

  /// Shows the entry chosen last for the purpose. `formats` has at least one entry and outlives the editor.
  FormatEditor(DefinedFormats& formats, EditorPurpose purpose);

  // The entries.
  std::size_t index() const { return index_; }
  const run::DelimitedFormat& format() const { return formats_.table[index_]; }
  /// The names as the list shows them. The text for a new format asks for a name until it gets one; in the table that
  /// text is shorter.
  const std::vector<std::string>& listNames() const { return listNames_; }
  void show(std::size_t index);
  [[nodiscard]] Refusal addFormat();
  [[nodiscard]] Refusal copyFormat();
  /// Afterwards the entry that moves up into its place is shown, or the last one.
  [[nodiscard]] Refusal removeFormat();
  /// Takes a name that was typed over the one in the list. Line breaks become blanks; a text without a visible
  /// character leaves the old name.
  [[nodiscard]] Refusal rename(std::string_view typed);

  // The fields of the entry.
  /// Each field's name, a blank, the delimiter and a blank; a code that has no name is shown by its number.
  std::string fieldList() const;
  /// A position in that text, from 0 to its length.
  std::size_t cursor() const { return cursor_; }
  void placeCursor(std::size_t position);
  /// The field that holds the cursor: at a boundary the one that begins there; at the end of the text, the last one.
  Place fieldAtCursor() const;
  /// To the start of the next or previous field, and from the last one to the end of the list, where fields are
  /// appended.
  void nextField();
  void previousField();
  /// Adds a field, code 0 to 25, at the cursor: before the field that holds it, or after the last one. The cursor ends
  /// up after the new field.
  [[nodiscard]] Refusal addField(std::int16_t code);
  /// Removes the field that holds the cursor; the cursor stays in place.
  [[nodiscard]] Refusal deleteField();

  // The rest of the entry.
  /// "\T" for a tab, "\N" for a line feed, else the delimiter itself.
  std::string delimiterText() const;
  /// Takes a typed delimiter: "\t" and "\n", in either case, for tab and line feed, else the first character. An empty
  /// text leaves the old one.
  [[nodiscard]] Refusal setDelimiter(std::string_view typed);
  [[nodiscard]] Refusal setLatLongFormat(std::uint8_t latLongFormat);
  /// A header is one line: line breaks become blanks.
  [[nodiscard]] Refusal setHeader(std::string_view header);
  /// The header names of the fields, each with the delimiter after it, up to a code that has none.
  [[nodiscard]] Refusal generateHeader();
  [[nodiscard]] Refusal includeHeader(bool include);
  /// Whether the entry may be changed; otherwise why not.
  [[nodiscard]] Refusal mayChange() const;

  bool unsaved() const { return formats_.table != formats_.saved; }
  /// Writes the table. False: `error` receives the file's name and the system's text; the table is as it was.
  bool save(const std::string& path, std::string& error);
  /// Makes the entry the run's format of the purpose's side, and remembers it for that side.
  void choose(run::RunSettings& settings);

 private:
  /// Where the fields begin, and the end of the list.
  std::vector<std::size_t> boundaries() const;
  /// The number of the field that holds the cursor; `boundaries` has more than one entry.
  std::size_t heldField(const std::vector<std::size_t>& boundaries) const;
  Refusal append(run::DelimitedFormat format, const std::string& listName);
  run::DelimitedFormat& shown() { return formats_.table[index_]; }

  DefinedFormats& formats_;
  const EditorPurpose purpose_;
  std::vector<std::string> listNames_;
  std::size_t index_ = 0;
  std::size_t cursor_ = 0;
};

}  // namespace tovak::formats::delimited
