// Barcodes beside libzint: encoding with the picture's pixels, and PNG files. Both draw modules of two pixels, bars of
// about a hundred, and the caption below them.
#include <benchmark/benchmark.h>
#include <zint.h>

#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include "bench/support/peer_report.h"
#include "qvn/barcode/library_pictures.h"

namespace {

using namespace qvn::barcode;

class NoMessages final : public qvn::host::MessageBox {
 public:
  void show(std::string_view text, std::int32_t /*style*/, std::string_view /*title*/) override {
    throw std::runtime_error(std::string(text));
  }
};

struct Delete {
  void operator()(zint_symbol* symbol) const noexcept { ZBarcode_Delete(symbol); }
};
using PeerSymbol = std::unique_ptr<zint_symbol, Delete>;

PeerSymbol peerSymbol(int symbology, const std::string& caption) {
  PeerSymbol symbol(ZBarcode_Create());
  symbol->symbology = symbology;
  symbol->height = 50;
  if (ZBarcode_Encode(symbol.get(), reinterpret_cast<const unsigned char*>(caption.data()),
                      static_cast<int>(caption.size())) >= ZINT_ERROR) {
    throw std::runtime_error(symbol->errtxt);
  }
  return symbol;
}

void add(const std::string& name, const std::function<void()>& work) {
  benchmark::RegisterBenchmark(name.c_str(), [work](benchmark::State& state) {
    for (auto _ : state) work();
  })->MinTime(0.3);
}

void addPair(const std::string& name, const Symbol& symbol, int peerSymbology, const std::filesystem::path& folder) {
  const auto picture = [symbol] {
    NoMessages messages;
    return symbolPicture(symbol, {10, true}, {.moduleWidth = 2}, messages);
  };
  add("pixels_" + name + "/qvn", [picture] { benchmark::DoNotOptimize(picture()->raster()); });
  add("pixels_" + name + "/zint", [=] {
    const PeerSymbol peer = peerSymbol(peerSymbology, symbol.caption);
    if (ZBarcode_Buffer(peer.get(), 0) >= ZINT_ERROR) throw std::runtime_error(peer->errtxt);
  });
  const std::string file = (folder / "qvn.png").string();
  const std::string peerFile = (folder / "zint.png").string();
  add("png_" + name + "/qvn", [=] { picture()->save(file); });
  add("png_" + name + "/zint", [=] {
    const PeerSymbol peer = peerSymbol(peerSymbology, symbol.caption);
    std::snprintf(peer->outfile, sizeof peer->outfile, "%s", peerFile.c_str());
    if (ZBarcode_Print(peer.get(), 0) >= ZINT_ERROR) throw std::runtime_error(peer->errtxt);
  });
}

}  // namespace

int main(int argc, char** argv) {
  // In memory where there is such a folder: a disk takes longer to make a file than both to fill it.
  const std::filesystem::path memory = "/dev/shm";
  const bool hasMemory = std::filesystem::is_directory(memory);
  std::string name = ((hasMemory ? memory : std::filesystem::temp_directory_path()) / "qvn_barcode.XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) return 1;
  addPair("code128", {.caption = "PLU-123456"}, BARCODE_CODE128, name);
  addPair("code39", {.symbology = Symbology::Code39, .caption = "PLU-1234"}, BARCODE_CODE39, name);
  addPair("ean13", {.symbology = Symbology::Ean13, .caption = "400638133393"}, BARCODE_EANX, name);
  addPair("ean8", {.symbology = Symbology::Ean8, .caption = "9638507"}, BARCODE_EANX, name);
  const int status = qvn::bench::runBesidePeers(argc, argv);
  std::filesystem::remove_all(name);
  return status;
}
