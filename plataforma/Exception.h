// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"

#include <QByteArray>
#include <QString>

#include <exception>

namespace Sibrel
{

/// Root of every error that Sibrel raises.
///
/// `Message` is exactly the fixed text of the error, fit for showing to an operator. Whatever else is known
/// (file, line, column, the driver's own words) stands in `Detalhe`, one fact a sentence, and may be empty.
class SIBREL_EXPORT Exception : public std::exception
{
public:
    explicit Exception(QString Mensagem, QString OutrosFatos = {});
    ~Exception() override;

    Exception(const Exception &) = default;
    Exception &operator=(const Exception &) = default;

    /// `Message` in UTF-8, with `Detalhe` behind a line break when there is one. Lives as long as the object.
    const char *what() const noexcept override;

    /// Adds a fact to `Detalhe`, for a handler that knows more than the place that raised.
    void AcrescentarDetalhe(const QString &Fato);

    QString Message;
    QString Detalhe;

private:
    mutable QByteArray FTextoDeWhat;
};

/// An operation that a derived class had to provide was called.
class SIBREL_EXPORT EAbstractError : public Exception
{
public:
    using Exception::Exception;
    ~EAbstractError() override;
};

/// An operation that the present state does not allow, such as a name registered twice.
class SIBREL_EXPORT EInvalidOperation : public Exception
{
public:
    using Exception::Exception;
    ~EInvalidOperation() override;
};

/// A file that had to be there is not.
class SIBREL_EXPORT EFilerError : public Exception
{
public:
    using Exception::Exception;
    ~EFilerError() override;
};

/// A file could not be opened or read as a whole.
class SIBREL_EXPORT EFOpenError : public EFilerError
{
public:
    using EFilerError::EFilerError;
    ~EFOpenError() override;
};

/// A file could not be made or written as a whole.
class SIBREL_EXPORT EFCreateError : public EFilerError
{
public:
    using EFilerError::EFilerError;
    ~EFCreateError() override;
};

/// An index outside a list.
class SIBREL_EXPORT EListError : public Exception
{
public:
    using Exception::Exception;
    ~EListError() override;
};

/// An index outside a list of texts.
class SIBREL_EXPORT EStringListError : public EListError
{
public:
    using EListError::EListError;
    ~EStringListError() override;
};

/// A text that is not what it should be: a number, a date, a text that the code page cannot hold.
class SIBREL_EXPORT EConvertError : public Exception
{
public:
    using Exception::Exception;
    ~EConvertError() override;
};

/// A text file ended early, held something else than a number where one was due, or its device failed.
class SIBREL_EXPORT EInOutError : public Exception
{
public:
    using Exception::Exception;
    ~EInOutError() override;
};

/// An object is not of the class that was asked for.
class SIBREL_EXPORT EInvalidCast : public Exception
{
public:
    using Exception::Exception;
    ~EInvalidCast() override;
};

/// A picture of a format that cannot be read, or with damaged content.
class SIBREL_EXPORT EInvalidGraphic : public Exception
{
public:
    using Exception::Exception;
    ~EInvalidGraphic() override;
};

/// The database, its driver or a missing column.
class SIBREL_EXPORT EDatabaseError : public Exception
{
public:
    using Exception::Exception;
    ~EDatabaseError() override;
};

/// A document that is not well-formed XML, not valid by its own DTD, or that breaks a limit of TLimitesXML.
class SIBREL_EXPORT EDOMParseError : public Exception
{
public:
    using Exception::Exception;
    ~EDOMParseError() override;

    /// Where the document went wrong, from 1; 0 when the place is not known (a damaged encoding, no memory).
    int Linha = 0;
    int Coluna = 0;
};

} // namespace Sibrel
