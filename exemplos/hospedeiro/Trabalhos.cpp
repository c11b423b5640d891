// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/Trabalhos.h"

#include "hospedeiro/BancoDoExercicio.h"
#include "hospedeiro/Biblioteca.h"
#include "hospedeiro/DescricaoDeFigura.h"
#include "hospedeiro/DescricaoDeSimbolo.h"
#include "hospedeiro/FolhaEmImagem.h"
#include "hospedeiro/FontesDaBiblioteca.h"
#include "hospedeiro/PinturaDeSimbolo.h"

#include "plataforma/Exception.h"
#include "simbolos/SimboloVetorial.h"

#include <QFile>
#include <QFont>

#include <cstdio>
#include <vector>

namespace Hospedeiro
{

namespace
{

void Escrever(const QString &Texto)
{
    QFile Saida;
    const QByteArray Bytes = Texto.toUtf8();
    if (!Saida.open(stdout, QIODevice::WriteOnly) || Saida.write(Bytes) != Bytes.size() || !Saida.flush())
        throw Sibrel::EInOutError(QStringLiteral("A saída não pode ser escrita!"), Saida.errorString());
}

void EscreverAvisos(const std::vector<TAviso> &Avisos)
{
    for (const TAviso &Aviso : Avisos)
        EscreverErro(TextoDoAviso(Aviso), {});
}

void AbrirComAvisos(TBiblioteca &Biblioteca, const QString &Arquivo)
{
    TFontesDaBiblioteca Fontes;
    try {
        Biblioteca.Abrir(Arquivo, Fontes);
    } catch (...) {
        EscreverAvisos(Biblioteca.Avisos());
        throw;
    }
    EscreverAvisos(Biblioteca.Avisos());
}

// Pixels, not points: the sheet is the same whatever resolution a display has or pretends to have.
QFont FonteDosRotulos()
{
    constexpr int Altura = 12;
    QFont Fonte;
    Fonte.setPixelSize(Altura);
    return Fonte;
}

void ExportarEDesenhar(const TPedido &Pedido, TBiblioteca &Biblioteca)
{
    if (Pedido.Exportar)
        EscreverAvisos(Biblioteca.Exportar(*Pedido.Exportar));
    if (Pedido.Folha)
        GravarImagem(FolhaEmImagem(Biblioteca.Tabela(), Pedido.Tamanho, FonteDosRotulos()), *Pedido.Folha);
}

void ExecutarComBiblioteca(const TPedido &Pedido)
{
    TBiblioteca Biblioteca;
    AbrirComAvisos(Biblioteca, *Pedido.Biblioteca);
    ExportarEDesenhar(Pedido, Biblioteca);
    if (Pedido.Listar)
        Escrever(ListaDaTabela(Biblioteca.Tabela()));
}

void ExecutarComBanco(const TPedido &Pedido)
{
    TBancoDoExercicio Banco(*Pedido.Banco);
    TFontesDaBiblioteca Fontes;
    TBiblioteca Biblioteca;
    Biblioteca.AbrirBanco(Banco, Fontes);
    EscreverAvisos(Biblioteca.Avisos());
    ExportarEDesenhar(Pedido, Biblioteca);
}

void ExecutarComFigura(const TPedido &Pedido)
{
    Sibrel::TSimboloVetorial Figura;
    Figura.LerArquivo(*Pedido.Figura);
    PrepararSimbolo(Figura);
    if (Pedido.Captura)
        GravarImagem(SimboloEmImagem(Figura, Pedido.Tamanho), *Pedido.Captura);
    if (Pedido.Listar)
        Escrever(ListaDaFigura(Figura));
}

} // namespace

void EscreverErro(const QString &Mensagem, const QString &Detalhe)
{
    QFile Saida;
    if (!Saida.open(stderr, QIODevice::WriteOnly))
        return;
    Saida.write((Detalhe.isEmpty() ? Mensagem + u'\n' : Mensagem + u'\n' + Detalhe + u'\n').toUtf8());
}

void Executar(const TPedido &Pedido)
{
    if (Pedido.Texto)
        Escrever(*Pedido.Texto);
    else if (Pedido.Figura)
        ExecutarComFigura(Pedido);
    else if (Pedido.Banco)
        ExecutarComBanco(Pedido);
    else
        ExecutarComBiblioteca(Pedido);
}

} // namespace Hospedeiro
