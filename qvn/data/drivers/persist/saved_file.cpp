#include "qvn/data/drivers/persist/saved_file.h"

#include <algorithm>

#include "qvn/base/letter_case.h"
#include "qvn/base/utf8.h"
#include "qvn/data/drivers/persist/xml_names.h"

namespace qvn::data::persist {
namespace {

// What a text may begin with to tell its encoding. The library takes it for text when it is told the encoding.
struct Mark {
  std::string_view bytes;
  const char* encoding;
};
constexpr auto kMarks = std::to_array<Mark>({
    {"\xEF\xBB\xBF", "UTF-8"},
    {"\xFF\xFE", "UTF-16LE"},
    {"\xFE\xFF", "UTF-16BE"},
});

constexpr std::string_view kDocumentType = "<!DOCTYPE";
constexpr std::string_view kNamespaceUri = "http://www.w3.org/2000/xmlns/";

std::string_view orEmpty(const xmlChar* text) {
  return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

// Gives the encoding and leaves the stream at the text. It is fixed here and not left to the file: among those that the
// library knows are some that would hide a document type from declaresType.
const char* startReading(std::ifstream& stream) {
  std::array<char, 100> start{};
  stream.read(start.data(), start.size());
  const std::string_view read(start.data(), static_cast<std::size_t>(stream.gcount()));
  stream.clear();  // of the end of a short file
  const auto* mark = std::ranges::find_if(kMarks, [&](const Mark& row) { return read.starts_with(row.bytes); });
  stream.seekg(mark == kMarks.end() ? 0 : static_cast<std::streamoff>(mark->bytes.size()));
  if (mark != kMarks.end()) return mark->encoding;
  const std::string declaration = lowerCase(read.substr(0, read.find('>')));
  for (const char* known : {"windows-1252", "iso-8859-1"}) {
    if (declaration.find(known) != std::string::npos) return known;
  }
  return "UTF-8";
}

}  // namespace

SavedFile::SavedFile(const std::filesystem::path& path) : path_(path.string()), stream_(path, std::ios::binary) {
  if (!stream_) throw error("no se pudo abrir; revise la ruta y los permisos");
  const char* encoding = startReading(stream_);
  const ParserHandle parser(xmlNewParserCtxt());
  constexpr int kOptions =
      XML_PARSE_NONET | XML_PARSE_HUGE | XML_PARSE_BIG_LINES | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
  document_.reset(xmlCtxtReadIO(parser.get(), &SavedFile::feed, nullptr, this, nullptr, encoding, kOptions));
  if (isRefused_) throw error("declara un tipo de documento o no se pudo leer hasta el final");
  if (!document_) throw notXml(xmlCtxtGetLastError(parser.get()));
  reader_.reset(xmlReaderWalker(document_.get()));
  if (!reader_) throw error("no hay memoria para leerlo");
}

ProviderError SavedFile::notXml(const xmlError* problem) const {
  if (problem == nullptr || problem->message == nullptr) return error("el texto no es XML");
  std::string words = problem->message;
  words.resize(words.find_last_not_of(" \r\n") + 1);
  return error(words, problem->line);
}

// Zero bytes are left out, which makes the two bytes of UTF-16 one.
bool SavedFile::declaresType(std::string_view block) {
  return std::ranges::any_of(block, [this](char c) {
    if (c == '\0') return false;
    if (c == kDocumentType[matched_]) return ++matched_ == kDocumentType.size();
    matched_ = c == kDocumentType.front() ? 1 : 0;
    return false;
  });
}

int SavedFile::feed(void* self, char* buffer, int size) {
  auto* file = static_cast<SavedFile*>(self);
  file->stream_.read(buffer, size);
  const auto count = static_cast<std::size_t>(file->stream_.gcount());
  file->isRefused_ = file->isRefused_ || file->declaresType({buffer, count}) || file->stream_.bad();
  return file->isRefused_ ? -1 : static_cast<int>(count);
}

bool SavedFile::next() {
  for (;;) {
    const int outcome = xmlTextReaderRead(reader_.get());
    if (outcome < 0) throw error("no se pudo recorrer");
    if (outcome == 0) return false;
    const int kind = xmlTextReaderNodeType(reader_.get());
    if (kind == XML_READER_TYPE_ELEMENT || kind == XML_READER_TYPE_END_ELEMENT) return true;
  }
}

bool SavedFile::isStart() const { return xmlTextReaderNodeType(reader_.get()) == XML_READER_TYPE_ELEMENT; }
bool SavedFile::isEmpty() const { return xmlTextReaderIsEmptyElement(reader_.get()) == 1; }
int SavedFile::depth() const { return xmlTextReaderDepth(reader_.get()); }
bool SavedFile::is(std::string_view uri, std::string_view name) const {
  return this->name() == name && this->uri() == uri;
}

bool SavedFile::nextAttribute() {
  while (xmlTextReaderMoveToNextAttribute(reader_.get()) == 1) {
    if (uri() != kNamespaceUri) return true;
  }
  xmlTextReaderMoveToElement(reader_.get());
  return false;
}

std::string_view SavedFile::name() const { return orEmpty(xmlTextReaderConstLocalName(reader_.get())); }
std::string_view SavedFile::uri() const { return orEmpty(xmlTextReaderConstNamespaceUri(reader_.get())); }
std::string_view SavedFile::value() const { return orEmpty(xmlTextReaderConstValue(reader_.get())); }

ProviderError SavedFile::error(std::string_view words, long line) const {
  if (line == 0 && reader_) line = xmlGetLineNo(xmlTextReaderCurrentNode(reader_.get()));
  ErrorItem item;
  item.number = provider_number::kUnspecified;
  item.sqlState = "HY000";
  item.source = "MSPersist";
  item.description = "No se pudo leer el conjunto de registros guardado en «" + utf8::sanitize(path_) + "»";
  if (line > 0) item.description.append(", línea ").append(std::to_string(line));
  item.description.append(": ").append(utf8::sanitize(words));
  return ProviderError({std::move(item)});
}

}  // namespace qvn::data::persist
