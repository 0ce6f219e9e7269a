// The fixed texts of the dialogs. "&" stands in front of a button's mnemonic.
#pragma once

#include <array>
#include <string_view>

namespace qvn::dialogs {

inline constexpr std::string_view kMessageCaption = "Mensaje";
inline constexpr std::string_view kQuestionCaption = "Pregunta";
inline constexpr std::string_view kChoiceCaption = "Que hacer";
inline constexpr std::string_view kProgressCaption = "Reparando";
inline constexpr std::string_view kWorkCaption = "Espere un momento";
inline constexpr std::string_view kCancelling = "Cancelando...";
inline constexpr std::string_view kEntryCaption = "Quorvin POS";

inline constexpr std::string_view kAccept = "&Aceptar";
inline constexpr std::string_view kSecondMessageButton = "Command2";
inline constexpr std::string_view kCancel = "&Cancelar";

inline constexpr std::array<std::string_view, 2> kQuestionButtons = {"&Si", "&No"};
inline constexpr std::array<std::string_view, 4> kChoiceButtons = {"&Si", "Si a &todo", "&No", "&Cancelar"};

}  // namespace qvn::dialogs
