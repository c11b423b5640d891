// SPDX-License-Identifier: LGPL-2.1-or-later
// Any bytes as a symbol library: they are read or refused, what was read draws, and is read again as written.
#include "plataforma/Canvas.h"
#include "plataforma/Exception.h"
#include "simbolos/TabelaDeSimbolos.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdlib>

using namespace Sibrel;

namespace
{

void Exigir(bool Condicao)
{
    if (!Condicao)
        std::abort();
}

// False when the library was refused; then only the label of the failing record may be one too many.
bool Importar(TTabelaDeSimbolos &Tabela, const QString &Nome)
{
    try {
        Tabela.Importar(Nome);
        Exigir(Tabela.Simbolos().Count() == Tabela.ObterRotulos().Count());
        return true;
    } catch (const Exception &) {
        const int Sobra = Tabela.ObterRotulos().Count() - Tabela.Simbolos().Count();
        Exigir(Sobra == 0 || Sobra == 1);
        return false;
    }
}

void Desenhar(const TTabelaDeSimbolos &Tabela)
{
    constexpr int Lado = 24;
    constexpr int Bastam = 4;
    QImage Imagem(Lado, Lado, QImage::Format_RGB32);
    TCanvas Canvas(Imagem);
    for (int I = 0; I < std::min(Tabela.Simbolos().Count(), Bastam); ++I)
        Tabela.Desenhar(I, Canvas, {0, 0, Lado, Lado});
}

const QString &Pasta()
{
    static const QTemporaryDir Unica;
    static const QString Caminho = Unica.path();
    return Caminho;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *Quantos, char ***Argumentos)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    static const QApplication Aplicacao(*Quantos, *Argumentos);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *Dados, std::size_t Tamanho)
{
    const QString PastaDeAntes = QDir::currentPath(); // a refused library leaves the process in its folder
    const QString Nome = Pasta() + QStringLiteral("/biblioteca.txt");
    QFile Arquivo(Nome);
    Exigir(Arquivo.open(QIODevice::WriteOnly));
    Arquivo.write(reinterpret_cast<const char *>(Dados), static_cast<qint64>(Tamanho));
    Arquivo.close();

    TTabelaDeSimbolos Tabela;
    const bool Lida = Importar(Tabela, Nome);
    Desenhar(Tabela);
    if (Lida) {
        const QString Escrita = Pasta() + QStringLiteral("/escrita.txt");
        try {
            Tabela.Exportar(Escrita);
            TTabelaDeSimbolos DeNovo;
            Exigir(Importar(DeNovo, Escrita));
            Exigir(DeNovo.Simbolos().Count() == Tabela.Simbolos().Count());
        } catch (const EConvertError &) {
            Exigir(Tabela.NomeArquivo == Nome); // a bare carriage return inside a text: nothing was written
        }
    }
    QDir::setCurrent(PastaDeAntes);
    return 0;
}
