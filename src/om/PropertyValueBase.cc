#include "om/PropertyValueBase.h"

#include "om/OMException.h"

namespace om {

PropertyValueBase::PropertyValueBase(std::unique_ptr<PropertyValueImpl> impl)
    : m_impl(std::move(impl)) {}

PropertyValueBase::PropertyValueBase(PropertyValueImpl const& value) : m_impl(value.clone()) {}

PropertyValueBase::PropertyValueBase(PropertyValueBase const& other)
    : m_impl(other.m_impl ? other.m_impl->clone() : nullptr) {}

PropertyValueBase& PropertyValueBase::operator=(PropertyValueBase const& other) {
    if (this == &other) {
        return *this;
    }
    if (!other.m_impl) {
        m_impl.reset();
    } else if (m_impl) {
        m_impl->assign(*other.m_impl);
    } else {
        m_impl = other.m_impl->clone();
    }
    return *this;
}

bool PropertyValueBase::operator==(PropertyValueBase const& other) const {
    if (!m_impl || !other.m_impl) {
        return !m_impl && !other.m_impl;
    }
    return m_impl->equals(*other.m_impl);
}

bool PropertyValueBase::operator<(PropertyValueBase const& other) const {
    if (!other.m_impl) {
        return false;
    }
    if (!m_impl) {
        return true;
    }
    return m_impl->less(*other.m_impl);
}

bool PropertyValueBase::validate(PropertyDefinition const& definition,
                                 std::string& errorText) const {
    if (!m_impl) {
        errorText = "Value implementation is NULL";
        return false;
    }
    return m_impl->validate(definition, errorText);
}

PropertyValueImpl const& PropertyValueBase::getImpl() const {
    if (!m_impl) {
        throw OMException("PropertyValueBase::getImpl() impl is NULL");
    }
    return *m_impl;
}

PropertyValueImpl& PropertyValueBase::getImpl() {
    if (!m_impl) {
        throw OMException("PropertyValueBase::getImpl() impl is NULL");
    }
    return *m_impl;
}

} // namespace om
