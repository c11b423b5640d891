// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/TratadorDeSimboloVetorial.h"

#include "plataforma/Arquivo.h"
#include "plataforma/Exception.h"
#include "simbolos/SimboloVetorial.h"
#include "simbolos/TabelaDeSimbolos.h"

namespace Sibrel
{

void TTratadorDeSimboloVetorial::Gravar(TArquivoDeGravacao &Arquivo, const ISimbolo &Simbolo)
{
    QString Nome = Como<TSimboloVetorial>(Simbolo).ObterNomeArquivo();
    if (Tabela != nullptr) {
        const QString Relativo = CaminhoRelativo(PastaDe(Tabela->NomeArquivo), Nome);
        // A path that climbs out of the library's folder would break when the library is moved.
        if (!Relativo.startsWith(u'.') && !Relativo.startsWith(u'/') && !Relativo.startsWith(u'\\'))
            Nome = Relativo;
    }
    Arquivo.Escrever(u' ' + Nome + u' ');
    Arquivo.ProximaLinha();
}

void TTratadorDeSimboloVetorial::Ler(TArquivoDeLeitura &Arquivo, ISimbolo &Simbolo)
{
    auto &Vetorial = Como<TSimboloVetorial>(Simbolo);
    const int Linha = Arquivo.Linha();
    const QString Nome = SemComentario(Arquivo.LerRestoDaLinha());
    Arquivo.ProximaLinha();
    try {
        Vetorial.LerArquivo(Nome);
    } catch (Exception &E) {
        E.AcrescentarDetalhe(Arquivo.Onde(Linha));
        const bool Ausente = !ArquivoExiste(Vetorial.ObterNomeArquivo());
        Avisar(Linha, Ausente ? TTipoDeAviso::FiguraAusente : TTipoDeAviso::FiguraIlegivel,
               QStringLiteral("A figura <%1> %2.")
                   .arg(Vetorial.ObterNomeArquivo(),
                        Ausente ? QStringLiteral("não existe") : QStringLiteral("não pode ser lida")));
        throw;
    }
}

} // namespace Sibrel
