// Keeps the catalogue of an enumeration filled for as long as its library is loaded.
#pragma once

#include "ORLIX/ORLIXUtil/MessageMapRegistrator.h"

namespace orlix {

/// A static object of this type, one in the source file of the catalogue's texts.
template <class TEnum>
class CatalogueRegistration
{
public:
    CatalogueRegistration() noexcept
    {
        try {
            MessageMapRegistrator<TEnum, void>::process();
        } catch (...) {
            // Out of memory while loading: the first message that is asked for fills the catalogue.
        }
    }
    CatalogueRegistration(const CatalogueRegistration&) = delete;
    CatalogueRegistration& operator=(const CatalogueRegistration&) = delete;
    ~CatalogueRegistration() { details::withdrawCatalogue(details::catalogueAccess<TEnum>()); }
};

} // namespace orlix
