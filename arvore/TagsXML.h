// SPDX-License-Identifier: LGPL-2.1-or-later
// Names of elements and attributes of the documents, once for all who read and write them. Compared exactly:
// accents and letter case count. Some are only used by hosts that share the vocabulary.
#pragma once

#include "plataforma/Exportacao.h"
#include "plataforma/Modulo.h"

#include <QStringView>

namespace Sibrel
{

// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp): the vocabulary's own spelling
/// Names of elements and attributes, one constant each.
inline constexpr QStringView _ANGULO_INICIAL_ = u"AnguloInicial";
inline constexpr QStringView _ANGULO_FINAL_ = u"AnguloFinal";
inline constexpr QStringView _COR_ = u"Cor";
inline constexpr QStringView _COR_PREENCHIMENTO_ = u"CorPreenchimento";
inline constexpr QStringView _ESTILO_ = u"Estilo";
inline constexpr QStringView _ESTILO_PREENCHIMENTO_ = u"EstiloPreenchimento";
inline constexpr QStringView _ESPESSURA_ = u"Espessura";
inline constexpr QStringView _DATAHORA_ = u"Datahora";
inline constexpr QStringView _FORMA_ = u"Forma";
inline constexpr QStringView _IDENTIFICADOR_ = u"Identificador";
inline constexpr QStringView _IDENTIFICADORES_ = u"Identificadores";
inline constexpr QStringView _INFORMACAO_ = u"Informação";
inline constexpr QStringView _INFORMACOES_ = u"Informações";
inline constexpr QStringView _LATITUDE_ = u"Latitude";
inline constexpr QStringView _LINK_ = u"Link";
inline constexpr QStringView _LONGITUDE_ = u"Longitude";
inline constexpr QStringView _LETRA_ = u"Letra";
inline constexpr QStringView _NOME_ = u"Nome";
inline constexpr QStringView _NOME_FONTE_ = u"Fonte";
inline constexpr QStringView _ORIENTACAO_ = u"Orientação";
inline constexpr QStringView _PONTO_ = u"Ponto";
inline constexpr QStringView _PONTOS_ = u"Pontos";
inline constexpr QStringView _POSICAO_ = u"Posição";
inline constexpr QStringView _PRONTIFICACAO_ = u"Prontificação";
inline constexpr QStringView _RAIO_INTERNO_ = u"RaioInterno";
inline constexpr QStringView _RAIO_EXTERNO_ = u"RaioExterno";
inline constexpr QStringView _RAIO_INTERNO_Y_ = u"RaioInternoY";
inline constexpr QStringView _RAIO_EXTERNO_Y_ = u"RaioExternoY";
inline constexpr QStringView _ROTULO_ = u"Rótulo";
inline constexpr QStringView _SEQUENCIA_ = u"Sequência";
inline constexpr QStringView _SIMBOLO_ = u"Símbolo";
inline constexpr QStringView _TIPO_ = u"Tipo";
inline constexpr QStringView _VALOR_ = u"Valor";
inline constexpr QStringView _VELOCIDADE_ = u"Velocidade";
inline constexpr QStringView _ABSOLUTO_ = u"Absoluto";
inline constexpr QStringView _OPERANTE_ = u"Operante";
inline constexpr QStringView _RELATIVO_ = u"Relativo";
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)

/// The module that holds the names.
SIBREL_EXPORT TModulo &ModuloTagsXML() noexcept;

} // namespace Sibrel
