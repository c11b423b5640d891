// SPDX-License-Identifier: LGPL-2.1-or-later
// A slow, literal reader of library files, for comparing: byte by byte, one rule after the other.
#pragma once

#include <QByteArray>
#include <QRegularExpression>
#include <QStringList>

#include <limits>

namespace Sibrel::Testes
{

/// What a library gives: one line a symbol (parts indented), the labels and the class of the error, if any.
struct TResultadoDeLeitura {
    QStringList Simbolos;
    QStringList Rotulos;
    QString Erro;
    friend bool operator==(const TResultadoDeLeitura &, const TResultadoDeLeitura &) = default;
};

class TLeitorDeReferencia
{
public:
    explicit TLeitorDeReferencia(QByteArray Bytes)
        : FBytes(std::move(Bytes))
    {
    }

    TResultadoDeLeitura Ler()
    {
        try {
            const int Quantos = Inteiro();
            PularLinha();
            for (int I = 0; I < Quantos; ++I)
                Registro();
        } catch (const TFalha &Falha) {
            FResultado.Erro = QLatin1String(Falha.Classe);
        }
        return FResultado;
    }

private:
    struct TFalha {
        const char *Classe;
    };

    bool Fim() const { return FPosicao >= FBytes.size(); }
    char Aqui() const { return FBytes[FPosicao]; }
    bool FimDeLinha() const
    {
        return Fim() || Aqui() == '\n' ||
               (Aqui() == '\r' && (FPosicao + 1 == FBytes.size() || FBytes[FPosicao + 1] == '\n'));
    }
    void PularLinha()
    {
        while (!Fim() && Aqui() != '\n')
            ++FPosicao;
        if (!Fim())
            ++FPosicao;
    }
    QByteArray Token()
    {
        const QByteArray Brancos = " \t\r\n";
        while (!Fim() && Brancos.contains(Aqui()))
            ++FPosicao;
        if (Fim())
            throw TFalha{"EInOutError"};
        QByteArray Texto;
        while (!Fim() && !Brancos.contains(Aqui()))
            Texto += FBytes[FPosicao++];
        return Texto;
    }
    int Inteiro()
    {
        static const QRegularExpression Forma(QStringLiteral("^[+-]?[0-9]{1,15}$"));
        const QByteArray Texto = Token();
        const qint64 Valor = Texto.toLongLong();
        if (!Forma.match(QString::fromLatin1(Texto)).hasMatch() || Valor > std::numeric_limits<int>::max() ||
            Valor < std::numeric_limits<int>::min())
            throw TFalha{"EInOutError"};
        return static_cast<int>(Valor);
    }
    double Real()
    {
        static const QRegularExpression Forma(
            QStringLiteral("^[+-]?([0-9]+\\.?[0-9]*|\\.[0-9]+)([eE][+-]?[0-9]+)?$"));
        const QByteArray Texto = Token();
        bool Serve = false;
        const double Valor = Texto.toDouble(&Serve);
        if (!Serve || !Forma.match(QString::fromLatin1(Texto)).hasMatch())
            throw TFalha{"EInOutError"};
        return Valor;
    }
    static QString Aparado(QString Texto)
    {
        while (!Texto.isEmpty() && Texto.front() <= u' ')
            Texto.remove(0, 1);
        while (!Texto.isEmpty() && Texto.back() <= u' ')
            Texto.chop(1);
        return Texto;
    }
    QString Resto()
    {
        QByteArray Texto;
        while (!FimDeLinha())
            Texto += FBytes[FPosicao++];
        return QString::fromLatin1(Texto);
    }
    QString Tipo()
    {
        QByteArray Texto;
        while (Texto.size() < 10 && !FimDeLinha())
            Texto += FBytes[FPosicao++];
        return Aparado(QString::fromLatin1(Texto));
    }
    QString Rotulo()
    {
        const QByteArray Separadores = "\t =";
        while (!FimDeLinha() && Separadores.contains(Aqui()))
            ++FPosicao;
        QByteArray Texto;
        if (!FimDeLinha() && (Aqui() == '"' || Aqui() == '\'')) {
            const char Aspa = Aqui();
            Texto += FBytes[FPosicao++];
            while (!FimDeLinha()) {
                const char C = FBytes[FPosicao++];
                Texto += C;
                if (C != Aspa)
                    continue;
                if (FimDeLinha() || Aqui() != Aspa)
                    break;
                Texto += FBytes[FPosicao++];
            }
            Texto = Texto.mid(1);
            Texto.chop(1);
        } else {
            while (!FimDeLinha() && !Separadores.contains(Aqui()))
                Texto += FBytes[FPosicao++];
        }
        const QString Lido = QString::fromLatin1(Texto);
        return Lido == QStringLiteral("Posto de Coleta de Extraviados de Divisão de Exército") ? QString()
                                                                                               : Lido;
    }

    // The kind's own fields, as lines indented by its depth.
    QStringList Secao(const QString &Tipo, const QString &Recuo)
    {
        if (Tipo == QLatin1String("fonte")) {
            const int Codigo = Inteiro() & 0xFF;
            const int Charset = Inteiro() & 0xFF;
            const double Proporcao = Real();
            QString Nome = Resto();
            Nome =
                Nome.contains(QLatin1String("//")) ? Nome.section(QLatin1String("//"), 0, 0) : Aparado(Nome);
            PularLinha();
            return {QStringLiteral("%1Fonte %2 %3 %4 <%5>")
                        .arg(Recuo)
                        .arg(Codigo)
                        .arg(Charset)
                        .arg(Proporcao)
                        .arg(Nome)};
        }
        if (Tipo == QLatin1String("grafico")) {
            const QString Nome = Aparado(Resto().section(QLatin1String("//"), 0, 0));
            PularLinha();
            return {QStringLiteral("%1Grafico <%2>").arg(Recuo, Nome)};
        }
        const int Partes = Inteiro();
        PularLinha();
        QStringList Linhas{Recuo + QLatin1String("Composto")};
        for (int I = 0; I < Partes; ++I) {
            if (Fim())
                throw TFalha{"EInOutError"};
            const bool NadaAConsumir = FimDeLinha();
            const QString DaParte = this->Tipo().toLower();
            if (Conhecido(DaParte))
                Linhas += Secao(DaParte, Recuo + QLatin1String("  "));
            else if (NadaAConsumir)
                break; // every further pass would find the same
        }
        return Linhas;
    }
    static bool Conhecido(const QString &Tipo)
    {
        return Tipo == QLatin1String("fonte") || Tipo == QLatin1String("grafico") ||
               Tipo == QLatin1String("composto");
    }
    void Registro()
    {
        if (Fim())
            throw TFalha{"EInOutError"};
        const QString DoRegistro = Tipo().toLower();
        if (!Conhecido(DoRegistro))
            throw TFalha{"EInvalidOperation"};
        FResultado.Rotulos << Rotulo();
        FResultado.Simbolos += Secao(DoRegistro, {});
    }

    QByteArray FBytes;
    qsizetype FPosicao = 0;
    TResultadoDeLeitura FResultado;
};

} // namespace Sibrel::Testes
