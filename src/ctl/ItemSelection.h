#pragma once

#include "base/Result.h"
#include "ctl/Session.h"
#include "store/Collections.h"
#include "store/Query.h"
#include "store/SelectionElement.h"

#include <QCommandLineParser>
#include <memory>
#include <optional>

namespace mosaro::ctl {

/// The collections of a title, of a type; more than one may have it. None is a failure.
[[nodiscard]] base::Result<std::vector<std::shared_ptr<store::Collections>>>
collectionsOfTitle(store::StoreContext& context, const QString& title, int type = store::kTypeCollection);

/// The items of the collections of a title.
[[nodiscard]] base::Result<store::Predicate> inCollection(store::StoreContext& context, const QString& title);
/// The items that the rules of the smart collections of a title find.
[[nodiscard]] base::Result<store::Predicate> inSmartCollection(store::StoreContext& context,
                                                               const QString& title);
/// The items that carry a tag.
[[nodiscard]] base::Result<store::Predicate> withTag(store::StoreContext& context, const QString& title);

/// A media kind that an item may have, from the text of an option.
[[nodiscard]] std::optional<int> kindFromText(const QString& text);
/// All kinds as "4 Screen, 5 Phone …", for reasons of failure.
[[nodiscard]] QString kindsInWords();
/// The number of a sort key's name, as sortKeysInWords() has it or as the field of the browser is called.
[[nodiscard]] std::optional<int> sortKeyFromText(const QString& text);
[[nodiscard]] QString sortKeysInWords();

} // namespace mosaro::ctl
