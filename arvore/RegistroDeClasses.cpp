// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/RegistroDeClasses.h"

#include "plataforma/Exception.h"
#include "plataforma/Strings.h"

#include <algorithm>
#include <memory>
#include <mutex>

namespace Sibrel
{

namespace
{

std::unique_ptr<TRegistroDeClasses> DoProcesso;

} // namespace

std::vector<TRegistroDeClasses::TRegistro>::const_iterator TRegistroDeClasses::Procurar(QStringView Tag) const
{
    return std::find_if(FRegistros.begin(), FRegistros.end(),
                        [Tag](const TRegistro &R) { return MesmoTexto(R.Tag, Tag); });
}

void TRegistroDeClasses::Registrar(const QString &Tag, const TRefNoXML &Classe)
{
    const std::unique_lock Guarda(FMutex);
    if (Procurar(Tag) != FRegistros.end())
        throw EInvalidOperation(QStringLiteral("A Tag <%1> ja foi registrada!!").arg(Tag));
    FRegistros.push_back({Tag, Classe});
}

void TRegistroDeClasses::Remover(const QString &Tag)
{
    const std::unique_lock Guarda(FMutex);
    const auto Lugar = Procurar(Tag);
    if (Lugar == FRegistros.end())
        throw EInvalidOperation(QStringLiteral("A Tag <%1> não foi registrada!!").arg(Tag));
    FRegistros.erase(Lugar);
}

std::optional<TRefNoXML> TRegistroDeClasses::Obter(QStringView Tag) const
{
    const std::shared_lock Guarda(FMutex);
    const auto Lugar = Procurar(Tag);
    return Lugar != FRegistros.end() ? std::optional(Lugar->Classe) : std::nullopt;
}

TRegistroDeClasses &RegistroDeClasses()
{
    if (!DoProcesso)
        throw EInvalidOperation(QStringLiteral("O módulo TreeViewXML não foi iniciado!"));
    return *DoProcesso;
}

void CriarRegistroDeClasses()
{
    DoProcesso = std::make_unique<TRegistroDeClasses>();
}

void LiberarRegistroDeClasses() noexcept
{
    DoProcesso.reset();
}

} // namespace Sibrel
