// One public method as hosts in other languages call it: by its name, with named arguments.
//
//   const Method one = method<&LumLibreria::Question>("Question", "strMensaje", "DefaultButton=1");
//
// Everything but the names comes from the function: the types, which arguments are written back, and the result. What
// stands behind "=" is the JSON value of an argument that may be left out.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "qvn/automation/json.h"
#include "qvn/automation/travel.h"

namespace qvn::automation {

struct Parameter {
  std::string name;
  std::string type;
  bool isWrittenBack = false;
  bool isOptional = false;
  Json defaultValue;  ///< of an optional one
};

struct Method {
  std::string name;  ///< "PonLetra", "Recordset.MoveNext"
  std::vector<Parameter> parameters;
  std::string result;  ///< its type; empty without one

  /// Calls it with the members of the object `in`; gives its result and what was written back as members of `out`.
  Json (*call)(const Method& self, const Json& in, const Session& session) = nullptr;
};

namespace internal {

/// Splits "DefaultButton=1". The name of an object's own argument is "this".
Parameter parameterNamed(std::string_view text);
/// The argument, or its default. Throws RuntimeError 449 when it is missing.
const Json& argumentOf(const Parameter& parameter, const Json& in);
/// The error of an argument, with its name before the description.
[[noreturn]] void rethrowFor(const Parameter& parameter, const RuntimeError& error);

template <typename Function>
struct Signature;
template <typename R, typename... A>
struct Signature<R (*)(A...)> {
  using Result = R;
  using Arguments = std::tuple<A...>;
};
template <typename R, typename C, typename... A>
struct Signature<R (C::*)(A...)> {
  using Result = R;
  using Arguments = std::tuple<C&, A...>;
};
template <typename R, typename C, typename... A>
struct Signature<R (C::*)(A...) const> : Signature<R (C::*)(A...)> {};
template <typename R, typename C, typename... A>
struct Signature<R (C::*)(A...) const noexcept> : Signature<R (C::*)(A...)> {};
template <typename R, typename C, typename... A>
struct Signature<R (C::*)(A...) noexcept> : Signature<R (C::*)(A...)> {};

template <typename Argument>
using Bare = std::remove_cvref_t<Argument>;

// Supplied by the session, without a name.
template <typename Argument>
inline constexpr bool kIsSupplied =
    std::is_same_v<Bare<Argument>, Session> || std::is_same_v<Bare<Argument>, LumLibreria>;
// Objects that the function takes by reference.
template <typename Argument>
inline constexpr bool kIsObject = std::is_reference_v<Argument> && !kClassName<Bare<Argument>>.empty();
template <typename Argument>
inline constexpr bool kIsWrittenBack =
    std::is_lvalue_reference_v<Argument> && !std::is_const_v<std::remove_reference_t<Argument>> && !kIsObject<Argument>;

// What holds an argument during the call.
template <typename Argument>
using Held = std::conditional_t<kIsSupplied<Argument>, std::nullptr_t,
                                std::conditional_t<kIsObject<Argument>, std::shared_ptr<Bare<Argument>>,
                                                   std::conditional_t<std::is_same_v<Bare<Argument>, std::string_view>,
                                                                      std::string, Bare<Argument>>>>;

template <auto kFunction>
class Invoker {
  using Function = Signature<decltype(kFunction)>;
  using Result = typename Function::Result;
  using Arguments = typename Function::Arguments;
  static constexpr std::size_t kCount = std::tuple_size_v<Arguments>;
  template <std::size_t kIndex>
  using ArgumentAt = std::tuple_element_t<kIndex, Arguments>;
  template <typename Indices>
  struct Storage;
  template <std::size_t... kIndex>
  struct Storage<std::index_sequence<kIndex...>> {
    using Type = std::tuple<Held<ArgumentAt<kIndex>>...>;
  };
  using Values = typename Storage<std::make_index_sequence<kCount>>::Type;

 public:
  static constexpr std::size_t kNames = []<std::size_t... kIndex>(std::index_sequence<kIndex...>) {
    return (std::size_t{0} + ... + (kIsSupplied<ArgumentAt<kIndex>> ? 0U : 1U));
  }
  (std::make_index_sequence<kCount>());

  static void describe(Method& method) {
    [&]<std::size_t... kIndex>(std::index_sequence<kIndex...>) { (describeArgument<kIndex>(method), ...); }
    (std::make_index_sequence<kCount>());
    if constexpr (!std::is_void_v<Result>) method.result = Travel<Bare<TextResult<Result>>>::name();
  }

  static Json call(const Method& self, const Json& in, const Session& session) {
    return [&]<std::size_t... kIndex>(std::index_sequence<kIndex...>) {
      Values values{readArgument<kIndex>(self, in, session)...};
      Json out = Json::object();
      if constexpr (std::is_void_v<Result>) {
        std::invoke(kFunction, pass<kIndex>(std::get<kIndex>(values), session)...);
      } else {
        out.add("result", Travel<Bare<TextResult<Result>>>::write(
                              std::invoke(kFunction, pass<kIndex>(std::get<kIndex>(values), session)...), session));
      }
      (writeBack<kIndex>(self, std::get<kIndex>(values), out, session), ...);
      return out;
    }
    (std::make_index_sequence<kCount>());
  }

 private:
  template <typename Type>
  using TextResult = std::conditional_t<std::is_same_v<Bare<Type>, std::string_view>, std::string, Type>;

  // Position among the named arguments.
  template <std::size_t kIndex>
  static constexpr std::size_t kPosition = []<std::size_t... kBefore>(std::index_sequence<kBefore...>) {
    return (std::size_t{0} + ... + (kIsSupplied<ArgumentAt<kBefore>> ? 0U : 1U));
  }
  (std::make_index_sequence<kIndex>());

  template <std::size_t kIndex>
  static void describeArgument(Method& method) {
    using Argument = ArgumentAt<kIndex>;
    if constexpr (!kIsSupplied<Argument>) {
      Parameter& parameter = method.parameters[kPosition<kIndex>];
      parameter.type = Travel<Held<Argument>>::name();
      parameter.isWrittenBack = kIsWrittenBack<Argument>;
    }
  }

  template <std::size_t kIndex>
  static Held<ArgumentAt<kIndex>> readArgument(const Method& self, const Json& in, const Session& session) {
    using Argument = ArgumentAt<kIndex>;
    if constexpr (kIsSupplied<Argument>) {
      return nullptr;
    } else {
      const Parameter& parameter = self.parameters[kPosition<kIndex>];
      const Json& value = argumentOf(parameter, in);
      try {
        auto held = Travel<Held<Argument>>::read(value, session);
        if constexpr (kIsObject<Argument>) {
          if (!held) throw RuntimeError(error_number::kObjectNotSet);
        }
        return held;
      } catch (const RuntimeError& error) {
        rethrowFor(parameter, error);
      }
    }
  }

  template <std::size_t kIndex>
  static decltype(auto) pass(Held<ArgumentAt<kIndex>>& value, const Session& session) {
    using Argument = ArgumentAt<kIndex>;
    if constexpr (std::is_same_v<Bare<Argument>, Session>) {
      return (session);
    } else if constexpr (std::is_same_v<Bare<Argument>, LumLibreria>) {
      return (session.library);
    } else if constexpr (kIsObject<Argument>) {
      return (*value);
    } else if constexpr (std::is_same_v<Bare<Argument>, std::string_view>) {
      return std::string_view(value);
    } else if constexpr (kIsWrittenBack<Argument>) {
      return (value);
    } else {
      return std::move(value);
    }
  }

  template <std::size_t kIndex>
  static void writeBack(const Method& self, const Held<ArgumentAt<kIndex>>& value, Json& out, const Session& session) {
    if constexpr (kIsWrittenBack<ArgumentAt<kIndex>> && !kIsSupplied<ArgumentAt<kIndex>>) {
      out.add(self.parameters[kPosition<kIndex>].name, Travel<Held<ArgumentAt<kIndex>>>::write(value, session));
    }
  }
};

}  // namespace internal

/// A row of the table. There is one name for each argument; "this" is the first of those of an object's own methods.
template <auto kFunction, typename... Names>
Method method(std::string_view name, Names... names) {
  using Invoker = internal::Invoker<kFunction>;
  static_assert(sizeof...(Names) == Invoker::kNames, "one name for each argument");
  Method row;
  row.name = name;
  row.parameters = {internal::parameterNamed(names)...};
  Invoker::describe(row);
  row.call = &Invoker::call;
  return row;
}

}  // namespace qvn::automation
