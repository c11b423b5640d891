// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/Biblioteca.h"

#include "hospedeiro/BancoDoExercicio.h"
#include "hospedeiro/DescricaoDeSimbolo.h"
#include "hospedeiro/FontesDaBiblioteca.h"
#include "hospedeiro/PinturaDeSimbolo.h"

#include "plataforma/Arquivo.h"
#include "plataforma/FontesInstaladas.h"

#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>

namespace Hospedeiro
{

QString TextoDoAviso(const TAviso &Aviso)
{
    return Aviso.Linha > 0 ? QStringLiteral("Aviso, linha %1: %2").arg(Aviso.Linha).arg(Aviso.Texto)
                           : QStringLiteral("Aviso: %1").arg(Aviso.Texto);
}

void TBiblioteca::CarregarFontes(const QString &Lugar, TFontesDaBiblioteca &Fontes)
{
    const QStringList Recusadas = Fontes.Carregar(Lugar);
    for (const QString &Fonte : Recusadas)
        FAvisos.push_back({0, QStringLiteral("A fonte do arquivo <%1> não pode ser carregada.").arg(Fonte)});
}

void TBiblioteca::Abrir(const QString &Arquivo, TFontesDaBiblioteca &Fontes)
{
    CarregarFontes(Arquivo, Fontes);
    // An import works in the folder of its library and, when it fails, stays there.
    const auto Voltar = qScopeGuard([Pasta = QDir::currentPath()] { QDir::setCurrent(Pasta); });
    const auto Guardar = qScopeGuard([this] { GuardarAvisos(); });
    FTabela.Importar(Arquivo);
    PrepararSimbolos(FTabela.Simbolos());
}

void TBiblioteca::AbrirBanco(TBancoDoExercicio &Banco, TFontesDaBiblioteca &Fontes)
{
    CarregarFontes(Banco.LugarDasFontes(), Fontes);
    Banco.LerSimbolos(FTabela);
    FBanco = Banco.Nome();
    AvisarDasFontes();
}

QString TBiblioteca::Origem() const
{
    return Arquivo().isEmpty() ? FBanco : Arquivo();
}

void TBiblioteca::AvisarDasFontes()
{
    const QStringList Fontes = FontesDosSimbolos(FTabela.Simbolos());
    for (const QString &Fonte : Fontes)
        if (!Sibrel::FonteInstalada(Fonte))
            FAvisos.push_back({0, QStringLiteral("A fonte <%1> não está instalada.").arg(Fonte)});
}

void TBiblioteca::GuardarAvisos()
{
    for (const Sibrel::TAvisoDeImportacao &Aviso : FTabela.AvisosDaImportacao())
        FAvisos.push_back({Aviso.Linha, Aviso.Texto});
}

std::vector<TAviso> TBiblioteca::Exportar(const QString &Arquivo)
{
    const QDir PastaAnterior = QFileInfo(Sibrel::ResolverNomeDeArquivo(FTabela.NomeArquivo)).absoluteDir();
    FTabela.Exportar(Arquivo);
    const QDir PastaNova = QFileInfo(Sibrel::ResolverNomeDeArquivo(Arquivo)).absoluteDir();
    std::vector<TAviso> Avisos;
    if (PastaNova == PastaAnterior)
        return Avisos;
    for (const QString &Nome : ArquivosDosSimbolos(FTabela.Simbolos()))
        if (Sibrel::ArquivoExiste(PastaAnterior.filePath(Nome)) &&
            !Sibrel::ArquivoExiste(PastaNova.filePath(Nome)))
            Avisos.push_back({0, QStringLiteral("A figura <%1> não existe na pasta da nova biblioteca; "
                                                "copie-a para lá.")
                                     .arg(Nome)});
    return Avisos;
}

} // namespace Hospedeiro
