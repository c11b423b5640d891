// SPDX-License-Identifier: LGPL-2.1-or-later
// The symbol library file: a count line, then one record a symbol. Each record is a kind name in ten columns,
// a quoted label and the fields of the kind, which its handler reads and writes.
#include "lumbrix/ReadSeparador.h"
#include "plataforma/Arquivo.h"
#include "plataforma/ArquivoTexto.h"
#include "plataforma/Exception.h"
#include "simbolos/TabelaDeSimbolos.h"
#include "simbolos/TratadorDeSimbolo.h"

#include <QDir>

namespace Sibrel
{

namespace
{

constexpr int ColunasDaContagem = 5;
constexpr int ColunasDoRotulo = 20;

QString EntreAspas(QString Texto)
{
    return u'"' + Texto.replace(QLatin1String("\""), QLatin1String("\"\"")) + u'"';
}

// The label of a record: without the first and last character when it begins with a quote. Quotes doubled
// inside stay doubled, as readers of these libraries have always had them.
QString LerRotulo(TArquivoDeLeitura &Arquivo)
{
    QString Rotulo = ReadSeparador(Arquivo, u"\t =");
    if (Rotulo.startsWith(u'"') || Rotulo.startsWith(u'\''))
        Rotulo = Rotulo.sliced(1).chopped(Rotulo.size() > 1 ? 1 : 0);
    // This one label is not to appear on any screen.
    if (Rotulo == QStringLiteral("Posto de Coleta de Extraviados de Divisão de Exército"))
        Rotulo.clear();
    return Rotulo;
}

QString NaoRegistrado(const QString &Tipo)
{
    return QStringLiteral("O Tratador de Símbolo para o tipo <%1> não foi registrado!").arg(Tipo);
}

// The records before a failing one. That they cannot be written either would only hide the first error.
void GravarOQueHa(const TArquivoDeGravacao &Arquivo, const QString &Nome)
{
    try {
        Arquivo.Gravar(Nome);
    } catch (const EFCreateError &) {
        return;
    }
}

} // namespace

void TTabelaDeSimbolos::Importar(const QString &Nome)
{
    if (!ArquivoExiste(Nome))
        throw EFilerError(QStringLiteral("O arquivo selecionado não está disponível ou não existe!"),
                          QStringLiteral("Arquivo <%1>.").arg(Nome));
    NomeArquivo = Nome;
    FAvisos.clear();
    TArquivoDeLeitura Arquivo(Nome);
    const QString PastaAnterior = QDir::currentPath();
    LerRegistros(Arquivo);
    QDir::setCurrent(PastaAnterior);
    AvisarObservers();
}

void TTabelaDeSimbolos::LerRegistros(TArquivoDeLeitura &Arquivo)
{
    const std::int32_t Quantos = Arquivo.LerInteiro();
    Arquivo.ProximaLinha();
    // Names of pictures and figures are relative to the library's folder.
    if (const QString Pasta = PastaDe(ResolverNomeDeArquivo(NomeArquivo)); !Pasta.isEmpty())
        QDir::setCurrent(Pasta);
    for (std::int32_t I = 0; I < Quantos; ++I)
        LerRegistro(Arquivo);
}

void TTabelaDeSimbolos::LerRegistro(TArquivoDeLeitura &Arquivo)
{
    if (Arquivo.FimDoArquivo())
        Arquivo.Erro(QStringLiteral("O arquivo termina onde se esperava um símbolo."));
    const int Linha = Arquivo.Linha();
    const QString Tipo = SemBrancos(Arquivo.LerCaracteres(ColunasDoTipo));
    TRefTratador ClasseDoTratador;
    TRefSimbolo ClasseDoSimbolo;
    if (!TListaSimbolo::ObterTratadorDeSimbolo(Tipo, ClasseDoTratador, ClasseDoSimbolo) ||
        !ClasseDoTratador || !ClasseDoSimbolo)
        throw EInvalidOperation(NaoRegistrado(Tipo), Arquivo.Onde(Linha));
    std::unique_ptr<ISimbolo> Simbolo;
    std::unique_ptr<TTratadorDeSimbolo> Tratador;
    try {
        Simbolo = TTratadorDeSimbolo::NovoSimbolo(ClasseDoSimbolo, Tipo);
        Tratador = TTratadorDeSimbolo::Novo(ClasseDoTratador, this, Tipo);
    } catch (Exception &E) {
        E.AcrescentarDetalhe(Arquivo.Onde(Linha));
        throw;
    }
    FRotulos.Add(LerRotulo(Arquivo));
    Tratador->Ler(Arquivo, *Simbolo);
    FSimbolos->Add(std::move(Simbolo));
}

void TTabelaDeSimbolos::Exportar(const QString &Nome)
{
    // Not exchange(): `Nome` may be NomeArquivo itself, which hosts hand back to save where they read.
    const QString NomeAnterior = NomeArquivo;
    NomeArquivo = Nome;
    TArquivoDeGravacao Arquivo;
    try {
        try {
            GravarRegistros(Arquivo);
        } catch (const EConvertError &) {
            throw; // a text that cannot be written: the file is not to be touched
        } catch (...) {
            GravarOQueHa(Arquivo, Nome);
            throw;
        }
        Arquivo.Gravar(Nome);
    } catch (const EConvertError &) {
        NomeArquivo = NomeAnterior;
        throw;
    } catch (const EFCreateError &) {
        NomeArquivo = NomeAnterior;
        throw;
    }
}

void TTabelaDeSimbolos::GravarRegistros(TArquivoDeGravacao &Arquivo)
{
    Arquivo.Escrever(ADireita(FSimbolos->Count(), ColunasDaContagem));
    Arquivo.ProximaLinha();
    QString Tipo; // keeps the kind of the last symbol that was found, which the error names
    for (int I = 0; I < FSimbolos->Count(); ++I) {
        const ISimbolo *Simbolo = FSimbolos->Item(I);
        TRefTratador Tratador;
        if (Simbolo == nullptr ||
            !TListaSimbolo::ObterTratadorDeSimbolo(Simbolo->ObterClasse(), Tipo, Tratador) || !Tratador)
            throw EInvalidOperation(NaoRegistrado(Tipo), QStringLiteral("Símbolo %1.").arg(I));
        const std::unique_ptr<TTratadorDeSimbolo> Escritor = TTratadorDeSimbolo::Novo(Tratador, this, Tipo);
        const QString Rotulo = FRotulos.Linha(I);
        Arquivo.Escrever(AEsquerda(Tipo, ColunasDoTipo) + u' ' +
                         AEsquerda(EntreAspas(Rotulo), ColunasDoRotulo));
        Escritor->Gravar(Arquivo, *Simbolo);
    }
}

} // namespace Sibrel
