#pragma once

#include <exception>

#include "platform/CString.h"
#include "platform/Export.h"

/// Base of the toolkit's exceptions; thrown by value.
class VEKA_API CException : public std::exception {
public:
    explicit CException(CString text) : m_text(std::move(text)) {}
    ~CException() override;
    const char* what() const noexcept override { return m_text.GetString(); }

private:
    CString m_text;
};

/// An argument outside what the operation accepts, such as an index outside an array.
class VEKA_API CInvalidArgException : public CException {
public:
    CInvalidArgException() : CException("An invalid argument was given.") {}
    ~CInvalidArgException() override;
};

/// A file that can be opened but not read to its end.
class VEKA_API CFileException : public CException {
public:
    explicit CFileException(CString text) : CException(std::move(text)) {}
    ~CFileException() override;
};

/// Throws `CInvalidArgException`.
[[noreturn]] VEKA_API void AfxThrowInvalidArgException();
