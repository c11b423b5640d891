// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/ClientDataSet.h"

#include "plataforma/CodePage.h"
#include "plataforma/Conversao.h"
#include "plataforma/CustomConnection.h"
#include "plataforma/Exception.h"
#include "plataforma/ObjectList.h"
#include "plataforma/Rect.h"
#include "plataforma/Strings.h"

#include <QAbstractItemModel>
#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>
#include <QSqlQueryModel>
#include <QSqlRecord>
#include <QStringDecoder>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace Sibrel
{

namespace
{

[[noreturn]] void ErroDeLeitura(const QSqlError &Erro)
{
    throw EDatabaseError(QStringLiteral("A leitura do banco de dados falhou!"), Erro.text().trimmed());
}

QStringList NomesDasColunas(const QSqlQuery &Consulta)
{
    const QSqlRecord Registro = Consulta.record();
    QStringList Nomes;
    for (int I = 0; I < Registro.count(); ++I)
        Nomes += Registro.fieldName(I);
    return Nomes;
}

QStringList NomesDasColunas(const QAbstractItemModel &Modelo, const QModelIndex &Pai)
{
    QStringList Nomes;
    for (int I = 0; I < Modelo.columnCount(Pai); ++I)
        Nomes += Modelo.headerData(I, Qt::Horizontal).toString();
    return Nomes;
}

void PosicionarAntesDaPrimeira(QSqlQuery &Consulta)
{
    if (!Consulta.isActive() && !Consulta.exec())
        ErroDeLeitura(Consulta.lastError());
    if (!Consulta.isSelect())
        throw EDatabaseError(QStringLiteral("A consulta não devolve linhas!"), Consulta.lastQuery());
    if (!Consulta.isForwardOnly())
        Consulta.seek(QSql::BeforeFirstRow);
}

// A model that promises more and then brings nothing (it fetches in the background) is taken as it is.
void BuscarTudo(QAbstractItemModel &Modelo, const QModelIndex &Pai)
{
    int Antes = -1;
    while (Modelo.canFetchMore(Pai) && Modelo.rowCount(Pai) > Antes) {
        Antes = Modelo.rowCount(Pai);
        Modelo.fetchMore(Pai);
    }
    if (const auto *DeConsulta = qobject_cast<const QSqlQueryModel *>(&Modelo))
        for (const QSqlError &Erro : {DeConsulta->lastError(), DeConsulta->query().lastError()})
            if (Erro.isValid())
                ErroDeLeitura(Erro);
}

QString TextoDosBytes(const QByteArray &Bytes)
{
    QStringDecoder Decodificador(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString Texto = Decodificador(Bytes);
    return Decodificador.hasError() ? De1252(Bytes) : Texto;
}

QString Texto(const QVariant &Valor)
{
    switch (Valor.typeId()) {
    case QMetaType::QByteArray:
        return TextoDosBytes(Valor.toByteArray());
    case QMetaType::Double:
    case QMetaType::Float:
        return MenorFormaDecimal(Valor.toDouble());
    default:
        return Valor.toString();
    }
}

bool EInteiro(const QVariant &Valor)
{
    switch (Valor.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return true;
    default:
        return false;
    }
}

bool EReal(const QVariant &Valor)
{
    return Valor.typeId() == QMetaType::Double || Valor.typeId() == QMetaType::Float;
}

std::int32_t Inteiro(const QVariant &Valor)
{
    constexpr auto Menor = std::numeric_limits<std::int32_t>::min();
    constexpr auto Maior = std::numeric_limits<std::int32_t>::max();
    if (EInteiro(Valor)) {
        const qint64 Largo = Valor.toLongLong();
        if (std::in_range<std::int32_t>(Largo))
            return static_cast<std::int32_t>(Largo);
    } else if (EReal(Valor)) {
        const double Redondo = std::nearbyint(Valor.toDouble());
        if (Redondo >= Menor && Redondo <= Maior) // false for what is no number
            return Arredondar(Redondo);
    }
    return StrToInt(Texto(Valor)); // of a number out of range too: its text is not a number of 32 bits either
}

double Real(const QVariant &Valor)
{
    return EInteiro(Valor) || EReal(Valor) ? Valor.toDouble() : StrToReal(Texto(Valor));
}

} // namespace

TField::TField(const TClientDataSet &DataSet, std::size_t Coluna, QString Nome)
    : FDataSet(&DataSet)
    , FColuna(Coluna)
    , FNome(std::move(Nome))
{
}

const QVariant &TField::AsVariant() const
{
    return FDataSet->Valor(FColuna);
}

bool TField::IsNull() const
{
    return AsVariant().isNull();
}

namespace
{

// `Ler` of the field's value, or what NULL reads as; a failure says where it was.
template <class Resultado>
Resultado LerCampo(const TField &Campo, int Linha, Resultado (*Ler)(const QVariant &))
{
    const QVariant &Valor = Campo.AsVariant();
    if (Valor.isNull())
        return {};
    try {
        return Ler(Valor);
    } catch (EConvertError &Erro) {
        Erro.AcrescentarDetalhe(QStringLiteral("Coluna <%1>, linha %2.").arg(Campo.FieldName()).arg(Linha));
        throw;
    }
}

} // namespace

std::int32_t TField::AsInteger() const
{
    return LerCampo<std::int32_t>(*this, FDataSet->RecNo(), &Inteiro);
}

double TField::AsFloat() const
{
    return LerCampo<double>(*this, FDataSet->RecNo(), &Real);
}

QString TField::AsString() const
{
    return LerCampo<QString>(*this, FDataSet->RecNo(), &Texto);
}

TClientDataSet::TClientDataSet() = default;
TClientDataSet::~TClientDataSet() = default;

void TClientDataSet::Trocar(const QStringList &Nomes, std::vector<QVariant> Valores)
{
    std::vector<TField> Campos;
    Campos.reserve(static_cast<std::size_t>(Nomes.size()));
    for (const QString &Nome : Nomes)
        Campos.push_back(TField(*this, Campos.size(), Nome));
    FLinhas = Campos.empty() ? 0 : Valores.size() / Campos.size();
    FCampos.swap(Campos);
    FValores.swap(Valores);
    FAberto = true;
    First();
}

void TClientDataSet::Open(QSqlQuery &Consulta)
{
    PosicionarAntesDaPrimeira(Consulta);
    const QStringList Nomes = NomesDasColunas(Consulta);
    const int Colunas = static_cast<int>(Nomes.size());
    std::vector<QVariant> Valores;
    while (Consulta.next())
        for (int C = 0; C < Colunas; ++C)
            Valores.push_back(Consulta.value(C));
    if (Consulta.lastError().isValid())
        ErroDeLeitura(Consulta.lastError());
    Trocar(Nomes, std::move(Valores));
}

void TClientDataSet::Open(TCustomConnection &Conexao, const QString &SQL, const QVariantList &Valores)
{
    QSqlQuery Consulta = Conexao.Consultar(SQL, Valores);
    Open(Consulta);
}

void TClientDataSet::Open(QAbstractItemModel &Modelo, const QModelIndex &Pai)
{
    BuscarTudo(Modelo, Pai);
    const QStringList Nomes = NomesDasColunas(Modelo, Pai);
    const int Colunas = static_cast<int>(Nomes.size());
    const int Linhas = Modelo.rowCount(Pai);
    std::vector<QVariant> Valores;
    Valores.reserve(static_cast<std::size_t>(Linhas) * static_cast<std::size_t>(Colunas));
    for (int L = 0; L < Linhas; ++L)
        for (int C = 0; C < Colunas; ++C)
            Valores.push_back(Modelo.data(Modelo.index(L, C, Pai), Qt::EditRole));
    Trocar(Nomes, std::move(Valores));
}

void TClientDataSet::Close() noexcept
{
    FCampos.clear();
    FValores = {};
    FLinhas = 0;
    FAtual = 0;
    FFim = true;
    FAberto = false;
}

void TClientDataSet::ExigirAberto() const
{
    if (!FAberto)
        throw EDatabaseError(QStringLiteral("O conjunto de dados está fechado!"));
}

void TClientDataSet::First()
{
    ExigirAberto();
    FAtual = 0;
    FFim = FLinhas == 0;
}

void TClientDataSet::Next()
{
    ExigirAberto();
    if (FAtual + 1 < FLinhas)
        ++FAtual;
    else
        FFim = true;
}

bool TClientDataSet::Eof() const
{
    ExigirAberto();
    return FFim;
}

int TClientDataSet::RecordCount() const
{
    ExigirAberto();
    return static_cast<int>(FLinhas);
}

int TClientDataSet::RecNo() const
{
    ExigirAberto();
    return FLinhas == 0 ? 0 : static_cast<int>(FAtual) + 1;
}

const TField &TClientDataSet::Field(int Indice) const
{
    ExigirAberto();
    if (Indice < 0 || Indice >= FieldCount())
        ErroDeIndice(Indice);
    return FCampos[static_cast<std::size_t>(Indice)];
}

const TField *TClientDataSet::FindField(QStringView Nome) const
{
    ExigirAberto();
    const auto Lugar = std::find_if(FCampos.begin(), FCampos.end(), [Nome](const TField &Campo) {
        return MesmoTexto(Campo.FieldName(), Nome);
    });
    return Lugar != FCampos.end() ? &*Lugar : nullptr;
}

const TField &TClientDataSet::FieldByName(QStringView Nome) const
{
    if (const TField *Campo = FindField(Nome))
        return *Campo;
    QStringList Nomes;
    for (const TField &Campo : FCampos)
        Nomes += Campo.FieldName();
    throw EDatabaseError(QStringLiteral("A coluna <%1> não existe!").arg(Nome),
                         QStringLiteral("Colunas: %1.").arg(Nomes.join(QStringLiteral(", "))));
}

const QVariant &TClientDataSet::Valor(std::size_t Coluna) const noexcept
{
    static const QVariant Nenhum;
    return FLinhas == 0 ? Nenhum : FValores[FAtual * FCampos.size() + Coluna];
}

} // namespace Sibrel
