// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/RegistroDeTratadores.h"

#include "plataforma/Exception.h"
#include "plataforma/Strings.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace Sibrel
{

namespace
{

constinit TRegistroDeTratadores *Registro = nullptr; // owned; from module start to module stop

} // namespace

void TRegistroDeTratadores::Registrar(const QString &Tipo, const TRefTratador &Tratador,
                                      const TRefSimbolo &Simbolo)
{
    if (PeloTipo(Tipo) != nullptr)
        throw EInvalidOperation(
            QStringLiteral("O tratador de Símbolo para o tipo <%1> já foi registrado!!").arg(Tipo));
    FRegistros.push_back({Tipo, Tratador, Simbolo});
}

void TRegistroDeTratadores::Remover(const QString &Tipo)
{
    std::erase_if(FRegistros, [&Tipo](const TRegistroTratador &R) { return MesmoTexto(R.Tipo, Tipo); });
}

const TRegistroTratador *TRegistroDeTratadores::PeloTipo(const QString &Tipo) const noexcept
{
    const auto Achado =
        std::find_if(FRegistros.begin(), FRegistros.end(),
                     [&Tipo](const TRegistroTratador &R) { return MesmoTexto(R.Tipo, Tipo); });
    return Achado != FRegistros.end() ? &*Achado : nullptr;
}

const TRegistroTratador *TRegistroDeTratadores::PelaClasse(const TRefSimbolo &Simbolo) const noexcept
{
    const auto Achado = std::find_if(FRegistros.begin(), FRegistros.end(),
                                     [&Simbolo](const TRegistroTratador &R) { return R.Simbolo == Simbolo; });
    return Achado != FRegistros.end() ? &*Achado : nullptr;
}

TRegistroDeTratadores &RegistroDeTratadores()
{
    if (Registro == nullptr)
        throw EInvalidOperation(QStringLiteral("O módulo TabelaDeSimbolos não foi iniciado!"));
    return *Registro;
}

void CriarRegistroDeTratadores()
{
    if (Registro == nullptr)
        Registro = std::make_unique<TRegistroDeTratadores>().release();
}

void LiberarRegistroDeTratadores() noexcept
{
    std::unique_ptr<TRegistroDeTratadores>(std::exchange(Registro, nullptr)).reset();
}

} // namespace Sibrel
