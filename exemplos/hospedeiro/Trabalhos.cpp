// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/Trabalhos.h"

#include "hospedeiro/AplicarDocumento.h"
#include "hospedeiro/ArvoreDoHospedeiro.h"
#include "hospedeiro/ArvoreEmImagem.h"
#include "hospedeiro/BancoDoExercicio.h"
#include "hospedeiro/Biblioteca.h"
#include "hospedeiro/DescricaoDaArvore.h"
#include "hospedeiro/DescricaoDeFigura.h"
#include "hospedeiro/DescricaoDeSimbolo.h"
#include "hospedeiro/FolhaEmImagem.h"
#include "hospedeiro/FontesDaBiblioteca.h"
#include "hospedeiro/PinturaDeSimbolo.h"

#include "plataforma/Exception.h"
#include "simbolos/SimboloVetorial.h"

#include <QFile>
#include <QFont>
#include <QTemporaryDir>

#include <cstdio>
#include <optional>
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

void AbrirComAvisos(TBiblioteca &Biblioteca, TBancoDoExercicio &Banco)
{
    TFontesDaBiblioteca Fontes;
    Biblioteca.AbrirBanco(Banco, Fontes);
    EscreverAvisos(Biblioteca.Avisos());
}

void ExecutarComSimbolos(const TPedido &Pedido, TBiblioteca &Biblioteca)
{
    if (Pedido.Exportar)
        EscreverAvisos(Biblioteca.Exportar(*Pedido.Exportar));
    if (Pedido.Folha)
        GravarImagem(FolhaEmImagem(Biblioteca.Tabela(), Pedido.Tamanho, FonteDosRotulos()), *Pedido.Folha);
    if (Pedido.Listar && !Pedido.Arvore && !Pedido.Banco)
        Escrever(ListaDaTabela(Biblioteca.Tabela()));
}

// What an update that fails would keep for later is still there as the file that was named.
class TSemArquivosDeErro
{
public:
    TSemArquivosDeErro() { Sibrel::TPreparaAtualizacao::AtribuirPastaDeErros(FPasta.path()); }
    ~TSemArquivosDeErro() { Sibrel::TPreparaAtualizacao::AtribuirPastaDeErros({}); }
    TSemArquivosDeErro(const TSemArquivosDeErro &) = delete;
    TSemArquivosDeErro &operator=(const TSemArquivosDeErro &) = delete;

private:
    QTemporaryDir FPasta;
};

void ExecutarComArvore(const TPedido &Pedido, Sibrel::TTabelaDeSimbolos *Tabela, TBancoDoExercicio *Banco)
{
    const TSemArquivosDeErro SemArquivos;
    TArvoreDoHospedeiro Arvore;
    Arvore.setFont(FonteDosRotulos());
    Arvore.ElementoRaiz = Pedido.Raiz;
    Arvore.AtribuirTabelaDeSimbolos(Tabela);
    if (Banco != nullptr)
        AplicarBanco(Arvore, *Banco);
    QStringList Documentos = Pedido.Atualizacoes;
    if (Pedido.Arvore)
        Documentos.prepend(*Pedido.Arvore);
    for (const QString &Documento : Documentos)
        if (AplicarDocumento(Arvore, Documento) == 0)
            EscreverErro(QStringLiteral("Aviso: O documento <%1> não diz nada à árvore.").arg(Documento), {});
    if (Pedido.Captura)
        GravarImagem(ArvoreEmImagem(Arvore), *Pedido.Captura);
    if (Pedido.Listar)
        Escrever(ListaDaArvore(Arvore));
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
    if (Pedido.Texto) {
        Escrever(*Pedido.Texto);
        return;
    }
    if (Pedido.Figura) {
        ExecutarComFigura(Pedido);
        return;
    }
    std::optional<TBancoDoExercicio> Banco;
    TBiblioteca Biblioteca;
    if (Pedido.Banco)
        AbrirComAvisos(Biblioteca, Banco.emplace(*Pedido.Banco));
    else if (Pedido.Biblioteca)
        AbrirComAvisos(Biblioteca, *Pedido.Biblioteca);
    ExecutarComSimbolos(Pedido, Biblioteca);
    if (Pedido.Arvore || (Banco && (Pedido.Listar || Pedido.Captura)))
        ExecutarComArvore(Pedido, &Biblioteca.Tabela(), Banco ? &*Banco : nullptr);
}

} // namespace Hospedeiro
