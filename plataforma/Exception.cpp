// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/Exception.h"

namespace Sibrel
{

Exception::Exception(QString Mensagem, QString OutrosFatos)
    : Message(std::move(Mensagem))
    , Detalhe(std::move(OutrosFatos))
{
}

const char *Exception::what() const noexcept
try {
    FTextoDeWhat = Message.toUtf8();
    if (!Detalhe.isEmpty())
        FTextoDeWhat += '\n' + Detalhe.toUtf8();
    return FTextoDeWhat.constData();
} catch (const std::bad_alloc &) {
    return "Sibrel::Exception"; // no memory for more
}

void Exception::AcrescentarDetalhe(const QString &Fato)
{
    if (!Detalhe.isEmpty())
        Detalhe += u' ';
    Detalhe += Fato;
}

// The destructors stand here so that each class has one type information record, in this library: an
// exception must be caught by a host that was built apart.
Exception::~Exception() = default;
EAbstractError::~EAbstractError() = default;
EInvalidOperation::~EInvalidOperation() = default;
EFilerError::~EFilerError() = default;
EFOpenError::~EFOpenError() = default;
EFCreateError::~EFCreateError() = default;
EListError::~EListError() = default;
EStringListError::~EStringListError() = default;
EConvertError::~EConvertError() = default;
EInOutError::~EInOutError() = default;
EInvalidCast::~EInvalidCast() = default;
EInvalidGraphic::~EInvalidGraphic() = default;
EDatabaseError::~EDatabaseError() = default;
EDOMParseError::~EDOMParseError() = default;

} // namespace Sibrel
